#pragma once

#include "Drawing.h"

#include <QImage>
#include <QString>
#include <QStringList>

namespace kelvado {

/// What stands on a cover. `year` 0 and empty texts are left out; a title of any length is made to fit.
struct CoverText
{
    QString title;
    int year = 0;
    QStringList genres; // the first one that says something decides colors and motif
    QString director;
    QString plot; // for the back
};

/// Title cards of 600 × 900 pixels: a motif in the colors of the film's genre, within a layout of its time that says where the texts stand.
/// The same text and seed give the same picture, another seed another coloring, motif and layout of the same genre.
/// Needs a QGuiApplication. Everything raises ArtFault, with the file, for a drawing or a list that cannot be read.
class Covers
{
public:
    /// Takes the folder that has "covers.json", "layouts" and "motifs".
    explicit Covers(const QString& folder);

    QImage Front(const CoverText& text, quint32 seed) const;
    /// The back of the same case, with the plot, in the colors of the front of that seed. A plot that does not fit ends in an ellipsis.
    QImage Back(const CoverText& text, quint32 seed) const;

private:
    struct Look;
    Look LookOf(const CoverText& text, quint32 seed) const;
    QJsonObject StyleOf(const QStringList& genres) const;
    static Values ValuesOf(const CoverText& text, const Look& look);
    QImage Card(const CoverText& text, const Look& look, const QString& layout) const;

    QString m_folder;
    QJsonObject m_list;
};

} // namespace kelvado
