#pragma once

#include "core/Profile.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace kelvado {

/// The values of a skin's `skin.ini`, held for the life of the process.
struct SkinValues
{
    QColor labelBack, labelText, boxText, boxBack;
    QString boxBorder; ///< "0" for boxes without a border
    QColor subNavSelected, subNavIdle, windowBack, treeBack, treeItemBack, treeItemText, progressFront, progressBack;
    QColor statusLight, statusBack, statusDark;
    QString fontName;
};

/// The color that lies `part` (0 to 1) of the way between two others.
QColor Mixed(const QColor& from, const QColor& to, float part);

/// The color itself, or one that stands out where it is that of its background: a skin without its colors has black on black.
QColor Visible(const QColor& color, const QColor& back);

/// Six hexadecimal digits, red, green and blue; a text beginning with "&H" is the system's own number, blue first. A pair that is no
/// number, as in an empty text, counts as 0.
QColor ParseColor(const QString& text);

/// Reads a skin's folder and repaints windows by it.
class Skinner : public QObject
{
    Q_OBJECT
public:
    /// Reads the skin and gives every window that is there, and all that come later, its colours.
    void ApplySkin(const QString& skin);

    /// The colours of the present skin that its file lacks or that are no colours, as "[Skin] TreeBackColor".
    QStringList BadColors() const;

    /// A menu colour by "MENU_BLOCK", "MENU_BACK", "MENU_HIGHLIGHT" or "MENUBAR_BACK"; any other name gives what an empty text gives.
    QColor GetMenuColor(const QString& name) const;

    /// Repaints one window and all its controls by kind. Labels whose name holds "URL" keep their text colour.
    void SkinForm(QWidget& form) const;
    /// The window's own colours and those of its menus.
    void SkinMainWindow(QWidget& window) const;

    const SkinValues& Values() const { return m_values; }
    const QString& Skin() const { return m_skin; }

Q_SIGNALS:
    /// Another skin was applied: what shows pictures of the skin, or colours of its own, takes the new ones.
    void Changed();

private:
    /// Makes the skin's own font known, once for each skin: an empty "install.skn" marks that it was done.
    void InstallSkinFont();
    void LoadSkinValues();
    void SetProgramFont();
    static Profile ReadSkinFile(const QString& skin);
    QPalette WindowPalette() const;
    QPalette MenuPalette() const;

    QString m_skin;
    std::optional<Profile> m_file; ///< of the skin that was applied
    SkinValues m_values;
    QSet<QString> m_fontFiles;          ///< known to this process already
    std::optional<QFont> m_desktopFont; ///< for a skin whose font is not installed
};

} // namespace kelvado
