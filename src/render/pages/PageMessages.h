#pragma once

#include "core/FilmId.h"

#include <QString>
#include <QUrl>

namespace kelvado {

/// A click in a page, as the page view tells it.
struct PageClick
{
    QString id;      ///< of the innermost element under the click
    QString tagName; ///< of that element
    QString href;    ///< its whole address, where it is a link
    bool controlDown = false;
};

/// What a click asks the window to do.
struct PageAction
{
    enum class Kind {
        Nothing,
        GoTo,        ///< select the tree node `text` and show it
        Credits,     ///< show all credits of `film`
        PopupMenu,   ///< open the popup menu at the cursor
        AddFilms,    ///< show the panel that adds films
        OpenOutside, ///< hand `address` to the desktop
    };
    Kind kind = Kind::Nothing;
    QString text;
    QUrl address;
    FilmId film = 0;
};

/// The meaning of a click. An element whose id holds "SendMessage" speaks to the program, as told at `ActionOfMessage`; one whose id holds
/// "javascript" is the page's own. The address of any other link goes to the desktop.
PageAction ActionOfClick(const PageClick& click);

/// The meaning of a message: `SendMessage:GOTO:12:Action`, `SendMessage:PAGE_CREDITS:12`, `SendMessage:PAGE_ADD`. `id` is split at its
/// colons and the second part is the command; an unknown one asks for nothing. Raises `kErrSubscript` where an argument is missing,
/// `kErrTypeMismatch` for a film without a number.
PageAction ActionOfMessage(const QString& id, bool controlDown);

} // namespace kelvado
