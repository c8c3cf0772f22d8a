#pragma once

#include "core/Choices.h"

#include <QComboBox>

#include <optional>

namespace kelvado {

/// A drop-down list of many rows in which typing finds: any part of a row's text, in any case, brings up the rows that hold it.
class ChoiceBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    /// Nothing is chosen afterwards.
    void SetRows(std::vector<Choice> rows);
    /// The number of the row that is shown; nothing where the text is that of no row. Of rows with the same text, the one that was picked
    /// counts.
    std::optional<qint64> Chosen() const;

private:
    Choices m_rows;
};

} // namespace kelvado
