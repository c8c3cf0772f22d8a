#pragma once

#include "app/Menus.h"
#include "core/AppState.h"
#include "core/Dialogs.h"
#include "core/RuntimeError.h"
#include "ui/Skinner.h"

#include <QObject>

#include <functional>

namespace kelvado {

/// Connects the menu entries that change how the program looks and behaves: the skin selector and the options.
class LookMenus : public QObject
{
    Q_OBJECT
public:
    /// What the entries work on; all of it outlives this object.
    struct Context
    {
        QWidget& window;
        AppState& state;
        Dialogs& dialogs;
        Menus& menus;
        Skinner& skinner;
        /// Loads every picture of the window from the skin that the state names. Raises what its files raise.
        std::function<void()> loadPictures;
        /// After an option was changed.
        std::function<void()> takeOptions;
        /// Whether the window is at work, so that its look must not change now.
        std::function<bool()> isBusy;
    };
    explicit LookMenus(const Context& context);

    /// Goes over to another skin. Raises `kErrFileNotFound` or `kErrInvalidPicture`, with the file, where it cannot be shown; the one
    /// before then stays.
    void ChangeSkin(const QString& skin);
    /// Goes over to `skin`, or where it cannot be shown to another one that can, which is told. Raises the failure of `skin` where there
    /// is none. `skin` is not the state's own text, which changes meanwhile.
    void ChangeToUsable(const QString& skin);

private:
    void Connect(const char* entry, void (LookMenus::*handler)());
    void SelectSkin();
    void ShowOptions();

    Context m_context;
};

} // namespace kelvado
