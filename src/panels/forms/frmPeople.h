#pragma once

#include "core/FilmId.h"
#include "core/SectionTabs.h"
#include "panels/PanelContext.h"
#include "panels/PersonEdit.h"
#include "panels/TableRows.h"

#include <QPoint>
#include <QWidget>

#include <array>
#include <memory>

class QTreeView;

namespace Ui {
class frmPeople;
}

namespace kelvado {

/// The panel of one person: the fields, the picture, the films that the person plays in, and the filmography. Nothing but the picture is
/// stored before "Save Changes".
class frmPeople : public QWidget, public EditPanel
{
    Q_OBJECT
public:
    explicit frmPeople(const PanelContext& context, QWidget* parent = nullptr);
    ~frmPeople() override;

    /// Shows the person with this number; what was changed and not saved is gone. Where the person cannot be read, the panel is emptied
    /// and the failure raised.
    void Actor_Edit_Page(qint64 actorId);
    /// Shows nobody.
    void Clear();
    /// The same where the person on show is no longer in the catalog, or another catalog is open.
    void ClearIfGone();
    void FocusFirst();
    /// The number of the person on show; 0 for nobody.
    qint64 ActorId() const { return m_actorId; }
    /// The film site's number of the selected film of the history; empty where none is selected.
    QString HistoryNumber() const;

    bool HasChanges() const override;
    QString Name() const override;
    void Save() override;
    void Discard() override;
    /// The same as `Save`, without a message.
    void Store();

Q_SIGNALS:
    /// The user opened a film of the catalog.
    void FilmWanted(FilmId movieId);
    /// The user asked for the menu of a film of the history; in the screen's coordinates.
    void HistoryMenuWanted(const QPoint& place);
    /// The user wants the person's data from the film site. Unsaved changes were asked about before.
    void RetrieveWanted();
    /// The person was saved; `name` is what the catalog holds.
    void PersonStored(qint64 actorId, const QString& name);

private:
    void SetUpLists();
    void SetUpFilms(QTreeView& list, TableRows& films, QTreeView& other);
    void Fill(const PersonPage& page);
    void FillTexts(const PersonPage& page);
    PersonTexts BoxTexts() const;
    /// What is to be stored.
    PersonTexts Texts() const;
    void SetDirty(bool isDirty);
    void Actor_Edit_Save();
    void ChooseImage();
    void StoreImage(const QString& path);
    void ShowPicture();
    void ShowActorsBeside(FilmId movieId);
    void ShowHistoryMenu(const QPoint& place);

    std::unique_ptr<Ui::frmPeople> m_ui;
    PanelContext m_context;
    qint64 m_actorId = 0;
    PersonTexts m_read, m_shown; ///< what was read, and what the boxes made of it
    std::array<qsizetype, kPersonFields> m_limits{};
    QString m_catalogPath; ///< the catalog that the person was read from
    bool m_isFilling = false;
    TableRows m_have, m_want, m_beside, m_history;
};

} // namespace kelvado
