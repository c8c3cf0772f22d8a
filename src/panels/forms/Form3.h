#pragma once

#include "panels/forms/FilmPanel.h"

#include <QUrl>

namespace kelvado {

/// "Edit Movie Information": changes one film. Plain fields wait for "Save Changes"; ticks, pictures, people and the NFO go to the catalog
/// at once.
class Form3 : public FilmPanel
{
    Q_OBJECT
public:
    /// `skinner` outlives the panel, as does what `context` names.
    Form3(const PanelContext& context, const Skinner& skinner, QWidget* parent = nullptr);

    /// Fills the panel with the film. Raises `kErrNoCurrentRecord` where there is no such film; the panel is then empty and off.
    void Edit_Page(FilmId movieId);
    /// Stores the plain fields under `movieId`, in the catalog that the panel was filled from.
    void Edit_Update(FilmId movieId);
    /// The film on show; nothing where the panel is empty.
    std::optional<FilmId> Film() const { return m_film; }
    /// Empties the panel and turns it off.
    void Clear();
    /// The same where the film on show is no longer in the catalog, or another catalog is open.
    void ClearIfGone();

    // EditPanel
    /// Stores the plain fields without a message, and brings tree and panel up to date.
    void Save() override;
    void Discard() override;

    void AddPerson() override;

Q_SIGNALS:
    void LinkActivated(const QUrl& address);

protected:
    void OnChange(QWidget* control) override;
    void OnTick(const NameTable& names, qint64 id, bool ticked) override;
    void OnImage(Cover cover, const QString& path) override;
    void OnGenreDeleted() override;
    void OnSave() override;
    std::optional<qint64> StoreCompany(const QString& name, int list) override;
    bool DropPerson(int row) override;
    bool DropCompany(const PairRow& company, int list) override;
    std::optional<QString> StorePersonText(int row, const QString& text) override;
    QString PersonText(int row) const override;
    QString RemoveCaption() const override { return tr("Re&move From Film..."); }
    void hideEvent(QHideEvent* event) override;

private:
    WriterContext Writer() const;
    FilmId ShownFilm() const;
    void ShowTicks(const FilmRecord& film);
    void ShowCover(Cover cover);
    void ShowLinks(const FilmOnShow& film);
    bool ConfirmRemoval(const QString& name);
    void OnAvi();
    void OnNfo();
    void TellTree(bool changed);
    void NoteGenreChange();
    void SetClean();

    std::optional<FilmId> m_film;
    bool m_treeIsStale = false; ///< a genre was changed that the tree or its filters go by
};

} // namespace kelvado
