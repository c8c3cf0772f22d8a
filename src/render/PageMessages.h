#pragma once

#include "render/PageHost.h"

namespace kelvado {

class Pages;

/// A click in a page, as the page view tells it.
struct PageClick
{
    QString id;      ///< of the innermost element under the click
    QString tagName; ///< of that element
    QString href;    ///< its whole address, where it is a link
    bool controlDown = false;
};

/// What clicks in a page mean. An element whose id holds "SendMessage" speaks to the program:
/// `SendMessage:GOTO:12:Action`, `SendMessage:PAGE_CREDITS:12`.
class PageMessages
{
public:
    PageMessages(PageHost& host, Pages& pages) : m_host(host), m_pages(pages) {}

    /// Follows a message, or hands the address of a plain link to the desktop: only http, https and mailto go out, others are dropped.
    void OnClick(const PageClick& click);
    void OnContextMenu();

    /// Splits `id` at its colons and does what the second part says; an unknown command does nothing. Raises 9 where an argument is
    /// missing, 13 or 6 where a film's number cannot be read, and what the host raises.
    void HandlePageMessage(const QString& id, bool controlDown);

private:
    PageHost& m_host;
    Pages& m_pages;
};

} // namespace kelvado
