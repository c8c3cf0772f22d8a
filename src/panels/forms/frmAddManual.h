#pragma once

#include "panels/forms/FilmPanel.h"

namespace kelvado {

/// Enters a film that no source knows. Nothing is written before "Add Movie".
class frmAddManual : public FilmPanel
{
    Q_OBJECT
public:
    /// `skinner` outlives the panel, as does what `context` names.
    frmAddManual(const PanelContext& context, const Skinner& skinner, QWidget* parent = nullptr);

    /// For each time that the panel comes into view: lists and limits follow the open catalog. What was entered stays.
    void Reopen();

    // EditPanel: a film that was entered and not added is a change that would be lost with the catalog or the program.
    /// Adds the film.
    void Save() override;
    /// Empties the panel.
    void Discard() override;

    void AddPerson() override;

protected:
    void OnChange(QWidget* control) override;
    void OnTick(const NameTable&, qint64, bool) override {}
    void OnImage(Cover cover, const QString& path) override;
    void OnSave() override;
    std::optional<qint64> StoreCompany(const QString& name, int list) override;
    bool DropPerson(int) override { return true; }
    bool DropCompany(const PairRow&, int) override { return true; }
    std::optional<QString> StorePersonText(int row, const QString& text) override;

private:
    void Clear();
    FilmRecord EnteredFilm();

    QString m_front, m_back; ///< the picture files that were chosen
};

} // namespace kelvado
