#pragma once

#include "core/Literals.h"
#include "ui/SectionTabRow.h"

#include <QWidget>

#include <array>

namespace kelvado {

/// The row in which the source of new films is chosen: the sources' tabs with the pieces that join them, all pictures of the skin. The
/// keys are the modes.
class GrabSelectRow : public TabRow
{
    Q_OBJECT
public:
    explicit GrabSelectRow(QWidget* parent = nullptr);

    /// Loads the pictures of `skin` with the source of `mode` selected: "IMDB", "DVDEmp" or "AdultEmp", or none for "File", which has no
    /// tab; any other does nothing.
    /// Raises `kErrFileNotFound` or `kErrInvalidPicture` where a picture is missing.
    void LoadSearchBar(const QString& skin, const QString& mode);
    /// Loads the pictures of `skin` for the source that is shown, once those of all three are known to be there. Raises as `LoadSearchBar`.
    void ReloadSearchBar(const QString& skin);
    /// Places the pieces side by side; the last one fills what is left.
    void ArrangeSearchBar();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    static constexpr std::size_t kSlots = 7;

    QPixmap Picture(const QString& skin, const char* file) const;

    std::array<TabImage*, kSlots> m_pieces{};
    TabImage* m_spacer;
    QString m_mode = u"IMDB"_s;
};

} // namespace kelvado
