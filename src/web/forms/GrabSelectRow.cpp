#include "web/forms/GrabSelectRow.h"

#include "core/Literals.h"
#include "ui/SkinPictures.h"

namespace kelvado {

namespace {

struct Slot
{
    const char* name;
    QLatin1StringView mode; ///< empty for a piece that is no tab
    const char* caption;
};

// From left to right.
constexpr Slot kSlotTable[] = {
    {"ImgTaddLeft", {}, ""},    {"ImgTaddIMDB", "IMDB"_L1, "IMDb"},
    {"ImgTaddTabber1", {}, ""}, {"ImgTaddDVDEmp", "DVDEmp"_L1, "DVD Empire"},
    {"ImgTaddTabber2", {}, ""}, {"ImgTaddAdultEmp", "AdultEmp"_L1, "Manual Entry"},
    {"ImgTaddRight", {}, ""},
};

struct ModePictures
{
    QLatin1StringView mode;
    std::array<const char*, std::size(kSlotTable)> files;
};

constexpr ModePictures kModes[] = {
    {"IMDB"_L1,
     {"ToolLeftSel.BMP", "ToolIMDBSel.BMP", "ToolFrontYesNo.BMP", "ToolDVDEmp.BMP", "ToolFrontNoNo.BMP", "ToolManual.BMP", "ToolEnd.BMP"}},
    {"DVDEmp"_L1,
     {"ToolLeft.BMP", "ToolIMDB.BMP", "ToolFrontNoYes.BMP", "ToolDVDEmpSel.BMP", "ToolFrontYesNo.BMP", "ToolManual.BMP", "ToolEnd.BMP"}},
    {"AdultEmp"_L1,
     {"ToolLeft.BMP", "ToolIMDB.BMP", "ToolFrontNoNo.BMP", "ToolDVDEmp.BMP", "ToolFrontNoYes.BMP", "ToolManualSel.BMP", "ToolEndSel.BMP"}},
    {"File"_L1,
     {"ToolLeft.BMP", "ToolIMDB.BMP", "ToolFrontNoNo.BMP", "ToolDVDEmp.BMP", "ToolFrontNoNo.BMP", "ToolManual.BMP", "ToolEnd.BMP"}},
};

} // namespace

GrabSelectRow::GrabSelectRow(QWidget* parent) : TabRow(parent)
{
    for (std::size_t i = 0; i < kSlots; ++i)
        m_pieces[i] = AddPiece(kSlotTable[i].name, kSlotTable[i].mode, kSlotTable[i].caption);
    m_spacer = AddPiece("ImgTaddSpacer", {}, "");
}

void GrabSelectRow::LoadSearchBar(const QString& skin, const QString& mode)
{
    const auto pictures = std::ranges::find(kModes, mode, &ModePictures::mode);
    if (pictures == std::end(kModes))
        return;
    // All or none: a row of two skins would be worse than the old one.
    std::array<QPixmap, kSlots> loaded;
    for (std::size_t i = 0; i < kSlots; ++i)
        loaded[i] = Picture(skin, pictures->files[i]);
    m_spacer->SetPicture(Picture(skin, "ToolSpacer.BMP"));
    for (std::size_t i = 0; i < kSlots; ++i)
        m_pieces[i]->SetPicture(loaded[i]);
    m_mode = mode;
    SetSelected(mode);
    ArrangeSearchBar();
}

void GrabSelectRow::ReloadSearchBar(const QString& skin)
{
    for (const ModePictures& mode : kModes) {
        for (const char* file : mode.files)
            Picture(skin, file);
    }
    LoadSearchBar(skin, m_mode);
}

QPixmap GrabSelectRow::Picture(const QString& skin, const char* file) const
{
    return LoadSkinPicture(skin, u"Searchbar/"_s + QLatin1StringView(file), devicePixelRatioF());
}

void GrabSelectRow::ArrangeSearchBar()
{
    int rowHeight = 0;
    int left = 0;
    for (const TabImage* piece : m_pieces)
        rowHeight = std::max(rowHeight, piece->PictureSize().height());
    if (rowHeight == 0)
        return; // no skin yet
    setFixedHeight(rowHeight);
    for (TabImage* piece : m_pieces) {
        piece->setGeometry(left, 0, piece->PictureSize().width(), rowHeight);
        left += piece->width();
    }
    m_spacer->setGeometry(left, 0, std::max(0, width() - left), rowHeight);
}

void GrabSelectRow::resizeEvent(QResizeEvent*)
{
    ArrangeSearchBar();
}

} // namespace kelvado
