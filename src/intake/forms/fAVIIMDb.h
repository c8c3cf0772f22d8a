#pragma once

#include "ui/Skinner.h"
#include "web/retrieval/FilmDesk.h"
#include "web/search/TitleSearch.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class fAVIIMDb;
}

namespace kelvado {

/// The user chooses a film among what a search for a title finds.
class fAVIIMDb : public QDialog
{
    Q_OBJECT
public:
    /// `desk` and `skinner` outlive the window.
    fAVIIMDb(FilmDesk& desk, const Skinner& skinner, QWidget* parent);
    ~fAVIIMDb() override;

    /// Shows the window, searches, and returns the row that the user chooses. Nothing where the window was closed; it closes by itself
    /// where nothing was found.
    std::optional<SearchRow> Choose(const QString& searchText);
    /// The other titles of films, by the rows' `AkaRow`.
    const QStringList& OtherTitles() const { return m_search.OtherTitles(); }
    /// Whether the user wants to choose among the titles of a film that has several.
    bool AsksForTitle() const;

    void reject() override;

Q_SIGNALS:
    /// A menu is wanted for the selected row; `number` is empty where there is none.
    void MenuWanted(const QPoint& globalPosition, const QString& number);

private:
    void IMDb_Search(const QString& searchText);
    void OnSelect();
    void OnChoose(int row);

    std::unique_ptr<Ui::fAVIIMDb> m_ui;
    FilmDesk& m_desk;
    TitleSearch m_search;
    std::optional<SearchRow> m_chosen;
};

} // namespace kelvado
