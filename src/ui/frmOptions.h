#pragma once

#include "core/Options.h"

#include <QDialog>
#include <QFont>

#include <functional>
#include <memory>
#include <optional>

class QCheckBox;
class QGridLayout;
class QSpinBox;
class QTreeWidgetItem;
class QWidget;

namespace Ui {
class frmOptions;
}

namespace kelvado {

/// Edits the option groups: a tree of pages, and one page at a time. What is changed on the display page counts at once, also where the
/// window is cancelled; what is fetched from the film site counts with "OK". The page of XML views has no options behind it.
class frmOptions : public QDialog
{
    Q_OBJECT
public:
    /// All of it outlives the window.
    struct Context
    {
        cOptions& options;
        /// After a display option was changed.
        std::function<void()> displayChanged;
        /// Lets the user choose a font; nothing where that is cancelled.
        std::function<std::optional<QFont>(const QFont& font, QWidget* parent)> chooseFont;
    };
    frmOptions(const Context& context, QWidget* parent);
    ~frmOptions() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A check box with a number that counts while the box is checked.
    struct Limit
    {
        QCheckBox* check;
        QSpinBox* number;
    };
    /// The check boxes of what is fetched for a film, in the order of the options.
    using Parts = QList<QCheckBox*>;

    QList<Limit> AddLimits(QGridLayout& grid, const QString& check, const QString& text, const QString& number);
    Parts AddParts(QWidget& frame, const QString& name);
    void AddPages();
    void ShowPage(const QTreeWidgetItem* page);
    void LoadDisplay();
    void OnDisplay(int index);
    void ExcludeConfirmations();
    void ChooseSectionFont();
    void StoreParts();

    std::unique_ptr<Ui::frmOptions> m_ui;
    Context m_context;
    QList<Limit> m_limits;
    QList<QCheckBox*> m_chkDisplay;
    Parts m_add, m_update;
    QFont m_sectionFont;
};

} // namespace kelvado
