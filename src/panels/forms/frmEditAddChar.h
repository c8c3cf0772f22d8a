#pragma once

#include "panels/PersonKinds.h"

#include <QDialog>
#include <QString>

#include <memory>
#include <optional>

namespace Ui {
class frmEditAddChar;
}

namespace kelvado {

/// "Add Actor" and its like: the choice of an existing person and of the role or note. It stores nothing.
class frmEditAddChar : public QDialog
{
    Q_OBJECT
public:
    struct Chosen
    {
        qint64 id;
        QString name;
        QString text; ///< the role or note; may be empty
    };

    /// Reads the persons of `kind`. Raises what the catalog raises.
    frmEditAddChar(const PersonKind& kind, const QString& catalogPath, QWidget* parent);
    ~frmEditAddChar() override;

    /// Shows the window and waits. Nothing where the user left it without "Okay".
    std::optional<Chosen> Ask();

private:
    /// Says beside the fields what they still lack; "Okay" is on only where nothing is missing.
    void Check();
    void CountLetters();

    std::unique_ptr<Ui::frmEditAddChar> m_ui;
    const PersonKind& m_kind;
};

} // namespace kelvado
