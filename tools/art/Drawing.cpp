#include "Drawing.h"

#include "core/Literals.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QJsonDocument>
#include <QPainter>
#include <QRegularExpression>
#include <QSettings>

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvado {

namespace {

constexpr auto kMark = "skin:"_L1;
constexpr int kDeepest = 4; // drawings within drawings

// What Qt draws of SVG; it passes over anything else without a word.
constexpr std::array kElements = {"svg"_L1,     "g"_L1,        "defs"_L1,    "title"_L1, "desc"_L1,  "metadata"_L1,       "style"_L1,
                                  "path"_L1,    "rect"_L1,     "circle"_L1,  "line"_L1,  "image"_L1, "linearGradient"_L1, "stop"_L1,
                                  "ellipse"_L1, "polyline"_L1, "polygon"_L1, "text"_L1,  "tspan"_L1, "radialGradient"_L1, "use"_L1};

QColor Blend(const QColor& from, const QColor& to, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor ToColor(const QString& text)
{
    const QColor color(text);
    if (!color.isValid())
        throw ArtFault(u'"' + text + u"\" is no color"_s);
    return color;
}

double ToNumber(const QString& text)
{
    bool good = false;
    const double number = text.toDouble(&good);
    if (!good)
        throw ArtFault(u'"' + text + u"\" is no number"_s);
    return number;
}

QString Value(const QString& name, const Values& values)
{
    if (name.startsWith(u'#'))
        return name;
    const auto found = values.constFind(name);
    if (found == values.cend())
        throw ArtFault(u"nothing is known by the name "_s + name);
    return *found;
}

QString Computed(const QString& expression, const Values& values)
{
    QStringList words = expression.simplified().split(u' ');
    QString result = Value(words.takeFirst(), values);
    while (words.size() >= 2) {
        QString by = words.takeFirst();
        const QString other = words.takeFirst();
        if (by == u"+")
            result = QString::number(ToNumber(result) + ToNumber(other));
        else if (by == u"-")
            result = QString::number(ToNumber(result) - ToNumber(other));
        else if (by == u"*")
            result = QString::number(ToNumber(result) * ToNumber(other));
        else if (by.endsWith(u'%'))
            result = Blend(ToColor(result), ToColor(Value(other, values)), ToNumber(by.chopped(1)) / 100).name();
        else
            words = {by};
    }
    if (!words.isEmpty())
        throw ArtFault(u"{"_s + expression + u"} cannot be computed"_s);
    return result;
}

QDomDocument ReadDocument(const QString& path)
{
    QDomDocument document;
    QString fault;
    int line = 0;
    if (!document.setContent(FileBytes(path), &fault, &line))
        throw ArtFault(path + u':' + QString::number(line), fault);
    if (document.documentElement().tagName() != u"svg")
        throw ArtFault(path, u"is no SVG drawing"_s);
    return document;
}

void FillElement(QDomElement element, const Values& values)
{
    const QDomNamedNodeMap attributes = element.attributes();
    QStringList names;
    for (int i = 0; i < attributes.count(); ++i)
        names << attributes.item(i).nodeName();
    for (const QString& name : names) {
        if (!name.startsWith(kMark))
            continue;
        const QString value = Filled(element.attribute(name), values);
        if (name == u"skin:text") {
            while (element.hasChildNodes())
                element.removeChild(element.firstChild());
            element.appendChild(element.ownerDocument().createTextNode(value));
        }
        element.setAttribute(name.mid(kMark.size()), value);
    }
}

double Advance(const QDomElement& element, const QString& text, const Values& values)
{
    const auto own = [&](const QString& name) { return Filled(element.attribute(kMark + name, element.attribute(name)), values); };
    QFont font(own(u"font-family"_s));
    font.setPixelSize(static_cast<int>(ToNumber(own(u"font-size"_s))));
    // The weight is that of the file, so that all states of a picture have one width.
    font.setWeight(static_cast<QFont::Weight>(element.attribute(u"font-weight"_s, u"400"_s).toInt()));
    font.setHintingPreference(QFont::PreferNoHinting);
    return std::ceil(QFontMetricsF(font).horizontalAdvance(text));
}

QRectF ViewBox(const QDomElement& root)
{
    const QStringList parts = root.attribute(u"viewBox"_s).simplified().split(u' ');
    if (parts.size() != 4)
        throw ArtFault(u"the drawing has no viewBox"_s);
    return {ToNumber(parts[0]), ToNumber(parts[1]), ToNumber(parts[2]), ToNumber(parts[3])};
}

/// Makes the drawing as wide as its text asks.
void Grow(QDomElement root, Values& values)
{
    const QRectF box = ViewBox(root);
    double width = box.width();
    if (root.hasAttribute(u"skin:grow"_s)) {
        const QDomNodeList texts = root.elementsByTagName(u"text"_s);
        for (int i = 0; i < texts.count(); ++i) {
            const QDomElement text = texts.at(i).toElement();
            if (text.attribute(u"id"_s) != root.attribute(u"skin:grow"_s))
                continue;
            width += Advance(text, Filled(text.attribute(u"skin:text"_s), values), values) - Advance(text, text.text(), values);
            width = std::max(width, root.attribute(u"skin:least"_s, u"1"_s).toDouble());
        }
    }
    values[u"Width"_s] = QString::number(width);
    root.setAttribute(u"viewBox"_s, u"%1 %2 %3 %4"_s.arg(box.x()).arg(box.y()).arg(width).arg(box.height()));
    root.setAttribute(u"width"_s, width);
}

/// Where a drawing is read from, and how deep it stands in others.
struct Source
{
    QStringList folders;
    QString name;
    int depth = 0;
};

void FillTree(const QDomElement& element, const Source& source, const Values& values);

QDomDocument FilledDocument(const Source& source, Values values)
{
    const QString path = FindArt(source.folders, source.name);
    if (source.depth > kDeepest)
        throw ArtFault(path, u"drawings stand within each other without an end"_s);
    QDomDocument document = ReadDocument(path);
    try {
        Grow(document.documentElement(), values);
        FillTree(document.documentElement(), source, values);
    } catch (const ArtFault& fault) {
        throw ArtFault(path, QString::fromUtf8(fault.what()));
    }
    return document;
}

/// Puts the parts of another drawing in the place of the image that names it.
void Include(QDomElement image, const QString& href, const Source& source, const Values& values)
{
    const QString name = QDir::cleanPath(QFileInfo(source.name).path() + u'/' + href);
    const QDomDocument drawing = FilledDocument({source.folders, name, source.depth + 1}, values);
    const QDomElement root = drawing.documentElement();
    const QRectF box = ViewBox(root);
    QDomElement group = image.ownerDocument().createElement(u"g"_s);
    const auto number = [&image](const QString& key, double without) { return image.attribute(key, QString::number(without)).toDouble(); };
    group.setAttribute(u"transform"_s, u"translate(%1 %2) scale(%3 %4)"_s.arg(number(u"x"_s, 0))
                                           .arg(number(u"y"_s, 0))
                                           .arg(number(u"width"_s, box.width()) / box.width())
                                           .arg(number(u"height"_s, box.height()) / box.height()));
    for (QDomNode child = root.firstChild(); !child.isNull(); child = child.nextSibling())
        group.appendChild(image.ownerDocument().importNode(child, true));
    image.parentNode().replaceChild(group, image);
}

void FillTree(const QDomElement& element, const Source& source, const Values& values)
{
    const QString tag = element.tagName();
    if (!tag.contains(u':') && std::find(kElements.begin(), kElements.end(), tag) == kElements.end())
        throw ArtFault(u"line %1: <%2> is not drawn"_s.arg(element.lineNumber()).arg(tag));
    FillElement(element, values);
    if (tag == u"image") {
        const QString name = element.attribute(u"href"_s, element.attribute(u"xlink:href"_s));
        if (name.endsWith(u".svg", Qt::CaseInsensitive))
            return Include(element, name, source, values);
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull();) {
        const QDomElement next = child.nextSiblingElement();
        FillTree(child, source, values);
        child = next;
    }
}

// What Qt reports while it reads a drawing, which is then drawn without the part that it means.
QString g_report;

void NoteReport(QtMsgType, const QMessageLogContext& context, const QString& text)
{
    if (QByteArrayView(context.category).startsWith("qt.svg"))
        g_report = text;
}

} // namespace

ArtFault::ArtFault(const QString& path, const QString& what) : ArtFault(path + u": "_s + what) {}

QString FirstInstalled(const QStringList& families)
{
    const QStringList installed = QFontDatabase::families();
    const auto found = std::find_if(families.begin(), families.end(), [&](const QString& family) { return installed.contains(family); });
    return found == families.end() ? u"DejaVu Sans"_s : *found;
}

Values ReadPalette(const QString& path)
{
    QSettings file(path, QSettings::IniFormat);
    Values values;
    file.beginGroup(u"Colours"_s);
    static const QRegularExpression digits(u"^[0-9A-Fa-f]{6}$"_s);
    for (const QString& name : file.childKeys()) {
        const QString color = file.value(name).toString();
        if (!digits.match(color).hasMatch())
            throw ArtFault(path, name + u" is no color of six digits"_s);
        values[name] = u'#' + color;
    }
    file.endGroup();
    if (values.isEmpty())
        throw ArtFault(path, u"has no colors"_s);
    values[u"Font"_s] = FirstInstalled(file.value(u"Text/Families"_s).toString().split(u'|'));
    values[u"TextSize"_s] = file.value(u"Text/Size"_s, u"13"_s).toString();
    return values;
}

QString Filled(const QString& text, const Values& values)
{
    static const QRegularExpression braces(u"\\{([^{}]*)\\}"_s);
    QString filled;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : braces.globalMatch(text)) {
        filled.append(QStringView(text).mid(from, match.capturedStart() - from)).append(Computed(match.captured(1), values));
        from = match.capturedEnd();
    }
    return filled.append(QStringView(text).mid(from));
}

QByteArray FileBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ArtFault(path, file.errorString());
    return file.readAll();
}

QJsonObject ReadList(const QString& path)
{
    QJsonParseError fault{};
    const QJsonDocument document = QJsonDocument::fromJson(FileBytes(path), &fault);
    if (document.object().isEmpty())
        throw ArtFault(path, fault.error == QJsonParseError::NoError ? u"is no list"_s : fault.errorString());
    return document.object();
}

QString FindArt(const QStringList& folders, const QString& name)
{
    for (const QString& folder : folders) {
        if (QString path = folder + u'/' + name; QFileInfo(path).isFile())
            return path;
    }
    throw ArtFault(name, u"is in none of "_s + folders.join(u", "));
}

Drawing::Drawing(const QStringList& folders, const QString& name, const Values& values)
    : m_document(FilledDocument({folders, name}, values)), m_renderer(std::make_unique<QSvgRenderer>())
{
    g_report.clear();
    const QtMessageHandler before = qInstallMessageHandler(NoteReport);
    const bool good = m_renderer->load(m_document.toByteArray(-1));
    qInstallMessageHandler(before);
    if (!good || !g_report.isEmpty())
        throw ArtFault(FindArt(folders, name), g_report.isEmpty() ? u"cannot be drawn"_s : g_report);
}

} // namespace kelvado
