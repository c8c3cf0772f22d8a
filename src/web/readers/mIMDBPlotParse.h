#pragma once

#include <QString>
#include <QStringView>

namespace kelvado {

/// The short plot of a film's page, with the blank in front of it. Without one, the text from place 12 to the next tag.
/// Raises `kErrInvalidCall` where no tag follows.
QString ParsePlotOutline(QStringView page);

/// The first paragraph of the plot page as it was fetched, not flattened; the result is flat and keeps its tags. "" without a paragraph;
/// one without an end raises `kErrInvalidCall`.
QString ParsePlotPage(QStringView page);

} // namespace kelvado
