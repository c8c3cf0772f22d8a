#pragma once

#include <QDomDocument>
#include <QJsonObject>
#include <QMap>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QSvgRenderer>

#include <memory>
#include <stdexcept>

class QPainter;

namespace kelvado {

/// What cannot be made of the drawings, the palette or the list of pictures; the text names the file.
class ArtFault : public std::runtime_error
{
public:
    explicit ArtFault(const QString& text) : std::runtime_error(text.toStdString()) {}
    ArtFault(const QString& path, const QString& what);
};

/// What the names in a drawing stand for: a color as "#rrggbb", a number or a text.
using Values = QMap<QString, QString>;

/// The first of the font families that is installed.
QString FirstInstalled(const QStringList& families);

/// Reads a palette: each entry of [Colours] by its name, and from [Text] "Font", the first family of `Families` that is installed, and
/// "TextSize". Raises ArtFault where the file has no colors, or one that is not of six hexadecimal digits.
Values ReadPalette(const QString& path);

/// `text` with what stands in braces filled in: "{Ink}" is a value, "{Width - 2}" (or +, *) a number, and "{Ink 40% Paper}" the color 40 %
/// of the way from one to the other, which goes on to the right: "{Ink 40% Paper 20% #ffffff}". Raises ArtFault where a name has no value.
QString Filled(const QString& text, const Values& values);

/// The bytes of a file; raises ArtFault where it cannot be read.
QByteArray FileBytes(const QString& path);

/// Reads an object of JSON; raises ArtFault where the file holds none.
QJsonObject ReadList(const QString& path);

/// A file of the first of `folders` that has it. Raises ArtFault where none does.
QString FindArt(const QStringList& folders, const QString& name);

/// An SVG drawing whose attributes follow a palette: beside `fill="#2b5fa6"`, which any drawing program shows, stands
/// `skin:fill="{Accent}"`, whose value takes its place here. `skin:text` gives a text element its text in the same way.
/// An image that is a drawing itself is drawn as a part of this one, with the same values.
/// Where the root names a text by `skin:grow="id"`, the drawing becomes wider by what that text is longer than the one in the file, but no
/// narrower than `skin:least`; "{Width}" is the width that it then has.
class Drawing
{
public:
    /// Raises ArtFault, with the drawing's path, where it is missing, is not well-formed, holds an element or a name that cannot be drawn.
    Drawing(const QStringList& folders, const QString& name, const Values& values);

    /// The size in units of the drawing.
    QSizeF Size() const { return m_renderer->viewBoxF().size(); }
    /// The drawing in `place`, over what is painted there.
    void Draw(QPainter& painter, const QRectF& place) const { m_renderer->render(&painter, place); }
    /// All elements of a name, filled in.
    QDomNodeList Elements(const QString& name) const { return m_document.elementsByTagName(name); }

private:
    QDomDocument m_document;
    std::unique_ptr<QSvgRenderer> m_renderer;
};

} // namespace kelvado
