#include "Covers.h"

#include "core/Literals.h"

#include <QJsonArray>
#include <QPainter>
#include <QSet>
#include <QTextLayout>

#include <algorithm>
#include <random>

namespace kelvado {

struct Covers::Look
{
    Values colors;
    QString motif;
    bool mirrored;
    QString layout;
    QString face; // of the title
};

namespace {

constexpr int kYearOfTheUndated = 2000;
constexpr const char* kColors[] = {"Ground", "Second", "Mark", "Paper", "Ink"}; // in the order of the list

/// One of an array; unlike the library's distributions the choice is the same with every compiler.
QJsonValue Pick(std::mt19937& dice, const QJsonArray& array)
{
    return array.isEmpty() ? QJsonValue() : array[static_cast<qsizetype>(dice() % static_cast<quint32>(array.size()))];
}

/// Old films are printed on warmer, paler paper.
QColor Aged(const QColor& color, int year)
{
    const float age = year > 0 ? std::clamp((1950 - static_cast<float>(year)) / 100, 0.0F, 0.5F) : 0;
    const QColor sepia = QColor::fromHslF(0.095F, color.hslSaturationF() * 0.45F, color.lightnessF());
    const auto mix = [age](float a, float b) { return a + (b - a) * age; };
    return QColor::fromRgbF(mix(color.redF(), sepia.redF()), mix(color.greenF(), sepia.greenF()), mix(color.blueF(), sepia.blueF()));
}

QFont FontOf(const QJsonObject& face)
{
    QFont font(FirstInstalled(face[u"families"].toVariant().toStringList()));
    font.setWeight(static_cast<QFont::Weight>(face[u"weight"].toInt(QFont::Normal)));
    font.setCapitalization(face[u"capitals"].toBool() ? QFont::AllUppercase : QFont::MixedCase);
    font.setLetterSpacing(QFont::AbsoluteSpacing, face[u"spacing"].toDouble());
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// Breaks the text into lines of `width`; words stay whole unless `breakWords`.
/// Gives the height, or -1 where a line is wider than `width`.
qreal LayOut(QTextLayout& layout, qreal width, qreal leading, Qt::Alignment across, bool breakWords)
{
    QTextOption option(across);
    option.setWrapMode(breakWords ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::WordWrap);
    layout.setTextOption(option);
    qreal y = 0;
    bool fits = true;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        fits = fits && line.naturalTextWidth() <= width + 0.5;
        y += line.height() * leading;
    }
    layout.endLayout();
    return fits ? y : -1;
}

/// Cuts a tenth or so off the end, at a blank where there is one, and puts an ellipsis there.
QString Shortened(const QString& text)
{
    qsizetype kept = text.size() * 9 / 10;
    while (kept > 1 && !text.at(kept - 1).isSpace() && kept > text.size() * 8 / 10)
        --kept;
    if (text.at(kept - 1).isHighSurrogate())
        --kept;
    return text.left(kept).trimmed() + u'…';
}

/// Draws the text of a layout's box in the largest of its sizes that the box holds; at the least one words break, and what is still too
/// much ends in an ellipsis.
void DrawText(QPainter& painter, const QDomElement& box, const QRectF& place, QFont font)
{
    constexpr qsizetype kLongest = 1200; // more never fits, and a text of any length stays quick
    QString text = box.attribute(u"holds"_s).simplified();
    if (text.size() > kLongest)
        text = text.left(kLongest) + u'…';
    const QString align = box.attribute(u"align"_s);
    const Qt::Alignment across = align.contains(u"right") ? Qt::AlignRight : align.contains(u"center") ? Qt::AlignHCenter : Qt::AlignLeft;
    const qreal leading = box.attribute(u"leading"_s).toDouble();
    const int least = box.attribute(u"least"_s).toInt();
    QTextLayout layout;
    qreal height = -1;
    const auto layOut = [&](int size, bool breakWords) {
        font.setPixelSize(size);
        layout.setText(text);
        layout.setFont(font);
        height = LayOut(layout, place.width(), leading, across, breakWords);
    };
    for (int size = box.attribute(u"most"_s).toInt(); size > least && (height < 0 || height > place.height()); size -= 2)
        layOut(size, false);
    if (height < 0 || height > place.height())
        layOut(least, true);
    for (; height > place.height() && text.size() > 1; layOut(least, true))
        text = Shortened(text);
    qreal top = place.top();
    if (align.contains(u"bottom"))
        top = place.bottom() - height;
    else if (align.contains(u"middle"))
        top = place.center().y() - height / 2;
    painter.setPen(QColor(box.attribute(u"color"_s)));
    layout.draw(&painter, QPointF(place.left(), top));
}

QRectF PlaceOf(const QDomElement& box)
{
    const auto number = [&box](const QString& name) { return box.attribute(name).toDouble(); };
    return {number(u"x"_s), number(u"y"_s), number(u"width"_s), number(u"height"_s)};
}

/// Fills the place with the drawing, which is cut where the place is wider or higher; the root's `preserveAspectRatio` says what stays.
void DrawMotif(QPainter& painter, const Drawing& motif, const QRectF& place, bool mirrored)
{
    painter.save();
    painter.setClipRect(place);
    if (mirrored) {
        painter.translate(2 * place.center().x(), 0);
        painter.scale(-1, 1);
    }
    QRectF whole(QPointF(), motif.Size().scaled(place.size(), Qt::KeepAspectRatioByExpanding));
    whole.moveCenter(place.center());
    const QString kept = motif.Elements(u"svg"_s).at(0).toElement().attribute(u"preserveAspectRatio"_s);
    if (kept.contains(u"YMax"))
        whole.moveBottom(place.bottom());
    else if (kept.contains(u"YMin"))
        whole.moveTop(place.top());
    motif.Draw(painter, whole);
    painter.restore();
}

} // namespace

Covers::Covers(const QString& folder) : m_folder(folder), m_list(ReadList(folder + u"/covers.json"_s))
{
    // Every drawing is read here, so that a broken one is told of whether a film takes it or not.
    const Values values = ValuesOf({}, LookOf({}, 0));
    QSet<QString> drawings{u"layouts/back.svg"_s};
    for (const QJsonValue style : m_list[u"styles"].toArray()) {
        for (const QString& motif : style[u"motifs"].toVariant().toStringList())
            drawings << u"motifs/"_s + motif + u".svg"_s;
    }
    for (const QJsonValue era : m_list[u"eras"].toArray()) {
        for (const QString& layout : era[u"layouts"].toVariant().toStringList())
            drawings << u"layouts/"_s + layout + u".svg"_s;
        for (const QString& face : era[u"faces"].toVariant().toStringList()) {
            if (!m_list[u"faces"][face].isObject())
                throw ArtFault(folder + u"/covers.json"_s, u"there is no face "_s + face);
        }
    }
    for (const QString& drawing : drawings)
        Drawing({folder}, drawing, values);
}

/// A genre that says little counts only where a film has no other; the last style takes the films without a known genre.
QJsonObject Covers::StyleOf(const QStringList& genres) const
{
    const QJsonArray styles = m_list[u"styles"].toArray();
    for (const bool vague : {false, true}) {
        for (const QString& genre : genres) {
            for (const QJsonValue style : styles) {
                if (style[u"vague"].toBool() == vague && style[u"genres"].toVariant().toStringList().contains(genre, Qt::CaseInsensitive))
                    return style.toObject();
            }
        }
    }
    return styles.last().toObject();
}

/// Everything that a film's text and seed decide; front and back of one seed share it.
Covers::Look Covers::LookOf(const CoverText& text, quint32 seed) const
{
    std::mt19937 dice(seed);
    const QJsonObject style = StyleOf(text.genres);
    Look look;
    const QJsonValue colors = Pick(dice, style[u"colors"].toArray());
    for (int i = 0; i < 5; ++i)
        look.colors[QString::fromLatin1(kColors[i])] = Aged(QColor(colors[i].toString()), text.year).name();
    look.motif = Pick(dice, style[u"motifs"].toArray()).toString();
    const int year = text.year > 0 ? text.year : kYearOfTheUndated;
    QJsonValue era;
    for (const QJsonValue one : m_list[u"eras"].toArray()) {
        era = one;
        if (year <= one[u"until"].toInt())
            break;
    }
    look.layout = Pick(dice, era[u"layouts"].toArray()).toString();
    look.face = Pick(dice, era[u"faces"].toArray()).toString();
    look.mirrored = dice() % 2 == 1;
    return look;
}

/// What the names in layouts and motifs stand for.
Values Covers::ValuesOf(const CoverText& text, const Look& look)
{
    const QString year = text.year > 0 ? QString::number(text.year) : QString();
    QStringList directorAndYear{text.director, year};
    directorAndYear.removeAll(QString());
    Values values = look.colors;
    values[u"Title"_s] = text.title;
    values[u"Year"_s] = year;
    values[u"Director"_s] = text.director;
    values[u"DirectorAndYear"_s] = directorAndYear.join(u"  ·  ");
    values[u"Genres"_s] = text.genres.join(u" · ");
    values[u"Plot"_s] = text.plot;
    return values;
}

QImage Covers::Card(const CoverText& text, const Look& look, const QString& layoutName) const
{
    const Values values = ValuesOf(text, look);
    const Drawing layout({m_folder}, u"layouts/"_s + layoutName + u".svg"_s, values);
    const Drawing motif({m_folder}, u"motifs/"_s + look.motif + u".svg"_s, values);
    QImage card(layout.Size().toSize(), QImage::Format_RGB32);
    card.fill(Qt::black);
    QPainter painter(&card);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QDomNodeList boxes = layout.Elements(u"rect"_s);
    for (int i = 0; i < boxes.count(); ++i) {
        const QDomElement box = boxes.at(i).toElement();
        if (box.attribute(u"class"_s) == u"motif")
            DrawMotif(painter, motif, PlaceOf(box), look.mirrored);
    }
    layout.Draw(painter, card.rect());
    for (int i = 0; i < boxes.count(); ++i) {
        const QDomElement box = boxes.at(i).toElement();
        if (box.attribute(u"class"_s) != u"text")
            continue;
        const QString face = box.attribute(u"face"_s) == u"title" ? look.face : box.attribute(u"face"_s);
        DrawText(painter, box, PlaceOf(box), FontOf(m_list[u"faces"][face].toObject()));
    }
    return card;
}

QImage Covers::Front(const CoverText& text, quint32 seed) const
{
    const Look look = LookOf(text, seed);
    return Card(text, look, look.layout);
}

QImage Covers::Back(const CoverText& text, quint32 seed) const
{
    return Card(text, LookOf(text, seed), u"back"_s);
}

} // namespace kelvado
