#include "app/LookMenus.h"

#include "core/Guard.h"
#include "core/Literals.h"
#include "core/Paths.h"
#include "ui/SkinList.h"
#include "ui/frmChangeSkin.h"
#include "ui/frmOptions.h"

#include <QAction>
#include <QApplication>
#include <QFontDialog>

#include <utility>

namespace kelvado {

LookMenus::LookMenus(const Context& context) : m_context(context)
{
    Connect("mnuSkin", &LookMenus::SelectSkin);
    Connect("mnuOptions", &LookMenus::ShowOptions);
}

void LookMenus::Connect(const char* entry, void (LookMenus::*handler)())
{
    connect(&m_context.menus.Entry(QString::fromLatin1(entry)), &QAction::triggered, this,
            [this, handler] { Guarded(m_context.dialogs, [&] { (this->*handler)(); }); });
}

void LookMenus::ChangeSkin(const QString& skin)
{
    RequireSkinFile(skin);
    const QString before = std::exchange(m_context.state.skin, skin);
    try {
        m_context.loadPictures();
    } catch (const RuntimeError&) {
        m_context.state.skin = before;
        try {
            m_context.loadPictures();
        } catch (const RuntimeError&) {
            // The skin before is gone as well: its pictures stay as far as they were not replaced.
        }
        throw;
    }
    m_context.skinner.ApplySkin(skin);
}

void LookMenus::ChangeToUsable(const QString& skin)
{
    try {
        return ChangeSkin(skin);
    } catch (const RuntimeError& failure) {
        // First the one that is as dark as what is on the screen.
        for (const QString& other : QStringList(SkinOfFirstStart(QApplication::palette())) + SkinNames()) {
            if (other == skin)
                continue;
            try {
                ChangeSkin(other);
            } catch (const RuntimeError&) {
                continue;
            }
            m_context.dialogs.MessageBox(
                tr("The skin \"%1\" cannot be shown.\r\n%2\r\n\r\nThe skin \"%3\" takes its place; Tools > Change Skin... offers others.")
                    .arg(skin, failure.Description(), other),
                kBoxExclamation);
            return;
        }
        throw;
    }
}

void LookMenus::SelectSkin()
{
    if (m_context.isBusy())
        return;
    const QString before = m_context.state.skin;
    frmChangeSkin selector({before, [this](const QString& skin) { ChangeSkin(skin); }, [this] { return m_context.skinner.BadColors(); }},
                           &m_context.window);
    m_context.skinner.SkinForm(selector);
    if (selector.exec() == QDialog::Accepted || m_context.state.skin == before)
        return;
    ChangeToUsable(before);
}

void LookMenus::ShowOptions()
{
    frmOptions options({*m_context.state.gOptions, m_context.takeOptions,
                        [](const QFont& font, QWidget* parent) {
                            bool chosen = false;
                            const QFont answer = QFontDialog::getFont(&chosen, font, parent);
                            return chosen ? std::optional(answer) : std::nullopt;
                        }},
                       &m_context.window);
    m_context.skinner.SkinForm(options);
    options.exec();
}

} // namespace kelvado
