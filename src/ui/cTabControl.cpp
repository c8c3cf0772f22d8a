#include "ui/cTabControl.h"

#include "core/Conversions.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "core/Profile.h"
#include "ui/SkinPictures.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace kelvado {

namespace {

// The whole numbers of a record behind its name.
QList<int> NumbersOf(const QStringList& fields, qsizetype count)
{
    if (fields.size() <= count)
        throw RuntimeError(kErrSubscript);
    QList<int> numbers;
    for (qsizetype i = 1; i <= count; ++i)
        numbers << ToLong(fields[i]);
    return numbers;
}

template<typename Record>
Record PieceOf(const QStringList& fields)
{
    const QList<int> n = NumbersOf(fields, 6);
    Record record;
    record.name = fields[0].trimmed();
    record.selected = QRect(n[0], n[1], n[4], n[5]);
    record.plain = QRect(n[2], n[3], n[4], n[5]);
    return record;
}

} // namespace

cTabControl::cTabControl(QWidget* parent) : TabRow(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    // Assistive programs press a tab without the mouse.
    connect(this, &TabRow::TabClick, this, [this](const QString& key) {
        for (int i = 0; i < Tabs().size(); ++i) {
            if (Tabs()[i]->Key() == key)
                Choose(i + 1);
        }
    });
}

void cTabControl::Initialize(const QList<Tab>& tabs, const QString& skin, const QString& coordinates, const QString& picture)
{
    m_bars = {};
    m_ends = {};
    m_mids = {};
    m_picture = {};
    try {
        ReadCoordinates(FindFileCaseBlind(SkinFolder(skin), coordinates));
        for (const Tab& tab : tabs)
            m_bars.Item(QString::fromLatin1(tab.name));
        for (const auto& end : {u"Left"_s, u"Right"_s})
            m_ends.Item(end);
        for (const auto& joint : {u"MidLOn"_s, u"MidROn"_s, u"MidOff"_s}) {
            if (tabs.size() > 1)
                m_mids.Item(joint);
        }
        if (m_bars.Count() != tabs.size())
            throw RuntimeError(kErrSubscript);
        LoadGraphicDC(skin, picture);
    } catch (const RuntimeError& error) {
        m_picture = {};
        DrawInitialBar(tabs);
        throw RuntimeError(error.Number(), coordinates + u": "_s + error.Description());
    }
    DrawInitialBar(tabs);
}

void cTabControl::ReadCoordinates(const QString& path)
{
    if (!QFileInfo(path).isFile())
        throw RuntimeError::WithDetail(kErrFileNotFound, path);
    const Profile profile(path);
    const auto forEachRecord = [&profile](const QString& key, const auto& add) {
        for (const QString& record : profile.Value(u"Tabs"_s, key).split(u'|', Qt::SkipEmptyParts))
            add(record.split(u','));
    };
    forEachRecord(u"Mids"_s, [this](const QStringList& fields) {
        const QList<int> n = NumbersOf(fields, 4);
        m_mids.Add({fields[0].trimmed(), QRect(n[0], n[1], n[2], n[3])});
    });
    forEachRecord(u"Seperators"_s, [this](const QStringList& fields) { m_ends.Add(PieceOf<cTabEnd>(fields)); });
    forEachRecord(u"Tabs"_s, [this](const QStringList& fields) { m_bars.Add(PieceOf<cTabBar>(fields)); });
}

void cTabControl::LoadGraphicDC(const QString& skin, const QString& picture)
{
    const QPixmap loaded = LoadSkinPicture(skin, picture, devicePixelRatioF());
    m_picture = loaded.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < m_picture.height(); ++y) {
        auto* pixels = reinterpret_cast<QRgb*>(m_picture.scanLine(y));
        std::replace(pixels, pixels + m_picture.width(), QRgb(0xFF000000), QRgb(0));
    }
}

// Makes the pieces anew: what was read decides how many there are.
void cTabControl::DrawInitialBar(const QList<Tab>& tabs)
{
    Clear();
    m_pieces.clear();
    m_selected = 0;
    for (const Tab& tab : tabs) {
        if (!m_picture.isNull())
            m_pieces << AddPiece("", {}, "");
        TabImage* piece = AddPiece(tab.name, QLatin1StringView(tab.name), tab.caption);
        piece->setFocusPolicy(Qt::NoFocus);
        m_pieces << piece;
    }
    if (!m_picture.isNull())
        m_pieces << AddPiece("", {}, "");
    for (TabImage* piece : std::as_const(m_pieces)) {
        piece->setAttribute(Qt::WA_TransparentForMouseEvents); // the strip decides which tab a press means
        piece->show();
    }
    DrawBar(1);
}

QPixmap cTabControl::Cut(const QRect& place) const
{
    const qreal ratio = m_picture.devicePixelRatio();
    QPixmap piece = QPixmap::fromImage(m_picture.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toRect()));
    piece.setDevicePixelRatio(ratio);
    return piece;
}

void cTabControl::DrawBar(int index)
{
    const QList<TabImage*> tabs = Tabs();
    if (index < 1 || index > tabs.size())
        return;
    m_selected = index;
    SetSelected(tabs[index - 1]->Key());
    ShowFocus();
    if (m_picture.isNull())
        return DrawCaptions();

    QPoint pen;
    int height = 0;
    const auto draw = [&](qsizetype piece, const QRect& place) {
        m_pieces[piece]->SetPicture(Cut(place));
        m_pieces[piece]->setGeometry(QRect(pen, place.size()));
        pen.rx() += place.width();
        height = std::max(height, place.height());
    };
    const auto form = [](const cTabEnd& piece, bool selected) { return selected ? piece.selected : piece.plain; };
    const auto last = static_cast<int>(tabs.size());
    draw(0, form(m_ends.Item(u"Left"_s), index == 1));
    for (int tab = 1; tab <= last; ++tab) {
        cTabBar& bar = m_bars.Item(tabs[tab - 1]->Key());
        bar.XPos = pen.x();
        bar.YPos = pen.y();
        draw(2 * tab - 1, form(bar, tab == index));
        if (tab < last)
            draw(2 * tab, m_mids.Item(tab == index ? u"MidLOn"_s : tab + 1 == index ? u"MidROn"_s : u"MidOff"_s).place);
    }
    draw(2 * last, form(m_ends.Item(u"Right"_s), index == last));
    setFixedSize(pen.x(), height);
}

// The strip of a skin that has no pictures for it.
void cTabControl::DrawCaptions()
{
    constexpr int kMargin = 12;
    const int height = fontMetrics().height() + kMargin;
    int left = 0;
    for (TabImage* tab : std::as_const(m_pieces)) {
        QFont font = tab->font();
        font.setBold(true);
        const int width = QFontMetrics(font).horizontalAdvance(tab->accessibleName()) + 2 * kMargin;
        QPixmap picture(QSize(width, height) * devicePixelRatioF());
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        font.setBold(tab->IsSelected());
        painter.setFont(font);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRect(0, 0, width, height), Qt::AlignCenter, tab->accessibleName());
        painter.end();
        tab->SetPicture(picture);
        tab->setGeometry(left, 0, width, height);
        left += width;
    }
    setFixedSize(left, height);
}

void cTabControl::Choose(int tab)
{
    if (tab == m_selected || tab < 1 || tab > Tabs().size())
        return;
    DrawBar(tab);
    Q_EMIT MouseDown(tab);
}

void cTabControl::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QList<TabImage*> tabs = Tabs();
    const int x = event->position().toPoint().x();
    for (int i = 0; i < tabs.size(); ++i) {
        if (x >= tabs[i]->x() && x < tabs[i]->x() + tabs[i]->width())
            return Choose(i + 1);
    }
}

void cTabControl::keyPressEvent(QKeyEvent* event)
{
    const int last = static_cast<int>(Tabs().size());
    switch (event->key()) {
    case Qt::Key_Left:
        return Choose(m_selected - 1);
    case Qt::Key_Right:
        return Choose(m_selected + 1);
    case Qt::Key_Home:
        return Choose(1);
    case Qt::Key_End:
        return Choose(last);
    default:
        TabRow::keyPressEvent(event);
    }
}

void cTabControl::focusInEvent(QFocusEvent* event)
{
    TabRow::focusInEvent(event);
    ShowFocus();
}

void cTabControl::focusOutEvent(QFocusEvent* event)
{
    TabRow::focusOutEvent(event);
    ShowFocus();
}

// The selected tab stands for the strip that has the focus.
void cTabControl::ShowFocus()
{
    for (TabImage* tab : Tabs())
        tab->ShowFocus(hasFocus() && tab->IsSelected());
}

} // namespace kelvado
