#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace kelvado {

/// The text with every letter in the one form that stands for all its cases: two texts that differ in case only give the same.
QString FoldCase(QStringView text);

/// True where the engine's own comparison, which is blind to the case of A to Z alone, does not do.
bool HasOtherLetters(QStringView text);

/// The beginnings, in other letters' cases, that a text of the same letters as `text` can have; A to Z stand there in one case. There are
/// at most eight, so they are as long as that allows.
QStringList BeginningsOf(QStringView text);

} // namespace kelvado
