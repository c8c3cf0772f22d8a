#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace kelvado {

/// What stands on a painted cover. `year` 0 and empty texts are left out; a title of any length is made to fit.
struct CoverText
{
    QString title;
    int year = 0;
    QStringList genres; // the first one that says something decides colours and motif
    QString director;
};

/// A painted title card of 600 × 900 pixels. The same text and seed give the same picture;
/// another seed gives another colouring, motif and arrangement of the same genre. Needs a QGuiApplication.
QImage PaintCover(const CoverText& text, quint32 seed);

/// The back of the same case: the plot as a block of text, in the colours of the front of that seed.
/// A plot that does not fit ends in an ellipsis.
QImage PaintBackCover(const CoverText& text, const QString& plot, quint32 seed);

} // namespace kelvado
