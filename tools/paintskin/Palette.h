#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <map>

namespace kelvado {

/// The few values that every picture of a skin is painted from: colours by role, the corner radius and the type face.
class Palette
{
public:
    /// Reads a palette file. Raises std::runtime_error, with the file and the key, where a role is missing or is no colour.
    explicit Palette(const QString& path);

    QColor Colour(const char* role) const;
    qreal Radius() const { return m_radius; }

    /// The skin's type face in its own size times `factor`, without subpixel colours.
    QFont Font(QFont::Weight weight, qreal factor = 1) const;

private:
    std::map<QString, QColor> m_colours;
    qreal m_radius = 0;
    QString m_family;
    int m_textSize = 0;
};

/// The colour `share` of the way from `from` to `to`.
QColor Blend(const QColor& from, const QColor& to, qreal share);

} // namespace kelvado
