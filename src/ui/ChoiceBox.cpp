#include "ui/ChoiceBox.h"

#include <QCompleter>
#include <QListView>

namespace kelvado {

namespace {

constexpr int kSuggestions = 12;

// A list of equal rows opens at once, however long it is.
QListView* EvenList(QWidget* parent)
{
    auto* list = new QListView(parent);
    list->setUniformItemSizes(true);
    return list;
}

} // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(kSuggestions);
    // The width follows the room, not the longest row, which would have to be looked for.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(24);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setView(EvenList(this));
    setModel(&m_rows);
    auto* finder = new QCompleter(&m_rows, this);
    finder->setFilterMode(Qt::MatchContains);
    finder->setCaseSensitivity(Qt::CaseInsensitive);
    finder->setMaxVisibleItems(kSuggestions);
    finder->setPopup(EvenList(nullptr));
    setCompleter(finder);
}

void ChoiceBox::SetRows(std::vector<Choice> rows)
{
    m_rows.SetRows(std::move(rows));
    setCurrentIndex(-1);
    clearEditText();
}

std::optional<Choice> ChoiceBox::Chosen() const
{
    const QString text = currentText();
    if (text.isEmpty())
        return std::nullopt;
    int row = currentIndex();
    if (row < 0 || itemText(row).compare(text, Qt::CaseInsensitive) != 0)
        row = findText(text, Qt::MatchFixedString);
    return row < 0 ? std::nullopt : std::optional(Choice{itemText(row), itemData(row).toLongLong()});
}

} // namespace kelvado
