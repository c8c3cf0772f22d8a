#pragma once

#include "core/SectionTabs.h"
#include "panels/FilmEdit.h"
#include "panels/PanelContext.h"
#include "panels/PersonKinds.h"
#include "panels/forms/PairList.h"
#include "ui/FieldNote.h"
#include "ui/Skinner.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace Ui {
class FilmPanel;
}

namespace kelvado {

/// What the panels that edit a film and that enter one by hand have in common: the controls in their groups, and how they and a record
/// fill each other. What is stored, and when, is each panel's own.
class FilmPanel : public QWidget, public EditPanel
{
    Q_OBJECT
public:
    FilmPanel(const PanelContext& context, const Skinner& skinner, QWidget* parent);
    ~FilmPanel() override;

    /// Loads the tab strips and stars of the present skin and colours the small tabs.
    void ApplySkin();

    /// Gives the focus to the first field of the page that is shown.
    void FocusFirst();
    /// The kind of the people that are shown.
    const PersonKind& ShownKind() const;
    virtual void AddPerson() = 0;
    /// Asks for the role or note of the selected person.
    void EditPerson();
    /// Takes the selected person off.
    void RemovePerson();

    // EditPanel
    bool HasChanges() const override;
    QString Name() const override;

Q_SIGNALS:
    void PersonMenuWanted(const QPoint& globalPosition);

protected:
    enum class Cover { Front, Back };

    /// Gives the boxes of `columns` their limits from the open catalog, and the drop-down lists their values.
    void LoadLimits(const QStringList& columnsWithout);
    /// Reads the names of the genres and features of the open catalog anew; none is ticked.
    void LoadTicks();
    void TickGenres(const QStringList& names);
    void ShowRecord(const FilmRecord& film, QDate lastViewing);
    /// Raises `kErrTypeMismatch` with the field's name for a price that is no number.
    FilmRecord ReadRecord();
    /// Puts the facts of a file into their boxes, as changes of the user.
    void TakeFileFacts(const FilmRecord& facts);
    void ShowPeople(const FilmRecord& film);
    void ShowCompanies(const FilmRecord& film);
    PairList& ShownPeople() const;
    PairList& PeopleOf(int kind) const;
    PairList& CompaniesOf(int list) const;
    QList<NamedRow> TickedGenres() const;
    /// Runs a handler: what it raises is shown.
    void Guard(const std::function<void()>& handler);

    virtual void OnChange(QWidget* control) = 0;
    virtual void OnTick(const NameTable& names, qint64 id, bool ticked) = 0;
    virtual void OnImage(Cover cover, const QString& path) = 0;
    virtual void OnGenreDeleted() {}
    virtual void OnSave() = 0;
    /// Stores a company that the user named for one of the lists and returns its number; nothing for a name that is none.
    virtual std::optional<qint64> StoreCompany(const QString& name, int list) = 0;
    /// Takes the person of a row of the list that is shown off; false where the user does not want to.
    virtual bool DropPerson(int row) = 0;
    /// Takes a company off; false where the user does not want to.
    virtual bool DropCompany(const PairRow& company, int list) = 0;
    /// Stores the new role or note of a person; nothing where nothing is to be shown.
    virtual std::optional<QString> StorePersonText(int row, const QString& text) = 0;
    /// What the button that removes a person says.
    virtual QString RemoveCaption() const;
    /// The role or note to offer for a change.
    virtual QString PersonText(int row) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

    std::unique_ptr<Ui::FilmPanel> m_ui;
    PanelContext m_context;
    const Skinner& m_skinner;
    QString m_catalogPath;  ///< whose film, genres and people are shown
    bool m_loading = false; ///< the controls are being filled: changes are none of the user's
    FieldNote* m_note;

private:
    /// A control that shows a text of the record.
    struct Bound
    {
        QWidget* control;
        QString FilmRecord::*member;
        bool isDecoded;
        QString value, shown; ///< as the record brought it, and as the control then showed it
    };

    void ConnectControls();
    void ConnectTicks(QListWidget& list, const NameTable& names);
    void ConnectFields();
    void ShowKind(int kind);
    void ShowText(int index);
    void ShowRating(int value);
    void CheckField(QWidget& field);
    void CountLetters(QLineEdit& field);
    void ChooseImage(Cover cover);
    void TakeImage(Cover cover, const QString& path);
    void OnAddCompany();
    void OnRemoveCompany();
    void OnAddGenre();
    void OnDelGenre();

    QList<Bound> m_fields;
    QList<QWidget*> m_unread; ///< drop-down lists whose values of this catalog were not read yet
    QString m_rating;         ///< as the record brought it
    int m_shownRating = 0;
    int m_kind = 0;
    int m_text = 0;
};

} // namespace kelvado
