#include "ui/ChoiceBox.h"

#include <QCompleter>
#include <QLineEdit>
#include <QListView>

#include <algorithm>

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
    // The suggestions are rows of their own, found and put in order here; the finder only shows them.
    setCompleter(nullptr);
    auto* finder = new QCompleter(&m_matches, this);
    finder->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    finder->setMaxVisibleItems(kSuggestions);
    finder->setPopup(EvenList(nullptr));
    lineEdit()->setCompleter(finder);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { m_matches.SetRows(MatchesOf(m_rows.Rows(), text)); });
    connect(finder, qOverload<const QModelIndex&>(&QCompleter::activated), this, [this](const QModelIndex& match) {
        const qint64 number = match.data(Qt::UserRole).toLongLong();
        const auto row = std::ranges::find(m_rows.Rows(), number, &Choice::number);
        if (row != m_rows.Rows().end())
            setCurrentIndex(static_cast<int>(row - m_rows.Rows().begin()));
    });
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
