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
    /// The row that is shown, whatever the case of the letters; nothing where the text is that of no row. Of rows with the same text, the
    /// one that was picked counts.
    std::optional<Choice> Chosen() const;

private:
    Choices m_rows;
    Choices m_matches; ///< the rows that hold what was typed
};

} // namespace kelvado
