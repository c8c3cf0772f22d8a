#include "ui/SectionTabRow.h"

#include "core/Literals.h"
#include "core/WindowLayout.h"
#include "ui/SkinPictures.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>

namespace kelvado {

namespace {

struct PieceInfo
{
    TabPiece piece;
    const char* name;
    QLatin1StringView section; ///< empty for a piece that is no tab
    const char* caption;
};

// In the order of the pictures.
constexpr PieceInfo kPieces[kTabPieces] = {
    {TabPiece::Left, "ImgTabLeft", {}, ""},
    {TabPiece::MovieList, "ImgTabMovieList", kMovieList, "Movie List"},
    {TabPiece::MovieGrab, "ImgTabMovieGrab", kMovieGrab, "Add Movies"},
    {TabPiece::MovieEdit, "ImgTabMovieEdit", kMovieEdit, "Edit Movie"},
    {TabPiece::ActorInfo, "ImgTabActorInfo", kActorInfo, "People"},
    {TabPiece::End, "ImgTabTabber4", {}, ""},
    {TabPiece::Joint1, "ImgTabTabber1", {}, ""},
    {TabPiece::Joint2, "ImgTabTabber2", {}, ""},
    {TabPiece::Joint3, "ImgTabTabber3", {}, ""},
};

// From left to right; what fills the row and the right end follow.
constexpr TabPiece kPlaces[kTabPieces] = {TabPiece::Left,      TabPiece::MovieList, TabPiece::Joint1,
                                          TabPiece::MovieGrab, TabPiece::Joint2,    TabPiece::MovieEdit,
                                          TabPiece::Joint3,    TabPiece::ActorInfo, TabPiece::End};

} // namespace

TabImage::TabImage(const QString& name, const QString& key, QWidget* parent) : QAbstractButton(parent), m_key(key)
{
    setObjectName(name);
    setFocusPolicy(IsTab() ? Qt::TabFocus : Qt::NoFocus);
    if (IsTab())
        setCursor(Qt::PointingHandCursor);
}

void TabImage::SetSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void TabImage::ShowFocus(bool shown)
{
    if (m_focusShown == shown)
        return;
    m_focusShown = shown;
    update();
    if (shown) {
        QAccessibleEvent event(this, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void TabImage::SetPicture(const QPixmap& picture)
{
    m_picture = picture;
    update();
}

void TabImage::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), m_picture);
    if (hasFocus() || m_focusShown) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(3, 5, -3, -5), 4, 4);
    }
}

void TabImage::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

TabImage* TabRow::AddPiece(const char* name, QLatin1StringView key, const char* caption)
{
    auto* piece = new TabImage(QString::fromLatin1(name), key, this);
    if (!piece->IsTab())
        return piece;
    piece->setAccessibleName(QString::fromLatin1(caption));
    connect(piece, &QAbstractButton::clicked, this, [this, piece] { Q_EMIT TabClick(piece->Key()); });
    m_tabs << piece;
    return piece;
}

void TabRow::Clear()
{
    m_tabs.clear();
    qDeleteAll(findChildren<TabImage*>(QString(), Qt::FindDirectChildrenOnly));
}

void TabRow::SetSelected(const QString& key)
{
    for (TabImage* tab : std::as_const(m_tabs))
        tab->SetSelected(tab->Key() == key);
}

SectionTabRow::SectionTabRow(QWidget* parent) : TabRow(parent)
{
    for (const PieceInfo& info : kPieces)
        m_pieces[static_cast<std::size_t>(info.piece)] = AddPiece(info.name, info.section, info.caption);
    m_spacer = AddPiece("ImgTabSpacer", {}, "");
    m_right = AddPiece("ImgTabRight", {}, "");
}

void SectionTabRow::LoadPictures(const QString& skin, const TabPictures& pictures)
{
    // All or none: a row of two skins would be worse than the old one.
    std::array<QPixmap, kTabPieces> loaded;
    for (std::size_t i = 0; i < pictures.size(); ++i)
        loaded[i] = LoadSkinPicture(skin, QString::fromLatin1(pictures[i]), devicePixelRatioF());
    for (std::size_t i = 0; i < pictures.size(); ++i)
        m_pieces[i]->SetPicture(loaded[i]);
    Arrange();
}

void SectionTabRow::LoadEnds(const QString& skin)
{
    const QPixmap spacer = LoadSkinPicture(skin, u"ToolSpacer.bmp"_s, devicePixelRatioF());
    m_right->SetPicture(LoadSkinPicture(skin, u"ToolRight.bmp"_s, devicePixelRatioF()));
    m_spacer->SetPicture(spacer);
    Arrange();
}

void SectionTabRow::Arrange()
{
    int fixed = m_right->PictureSize().width();
    int rowHeight = m_right->PictureSize().height();
    for (const TabImage* piece : m_pieces) {
        fixed += piece->PictureSize().width();
        rowHeight = std::max(rowHeight, piece->PictureSize().height());
    }
    setFixedHeight(rowHeight);
    int left = 0;
    const auto place = [&](TabImage& piece, int pieceWidth) {
        piece.setGeometry(left, 0, pieceWidth, rowHeight);
        left += pieceWidth;
    };
    for (const TabPiece piece : kPlaces)
        place(*Piece(piece), Piece(piece)->PictureSize().width());
    // What the rule leaves free at the right edge is covered by the last piece, so that no bare strip shows.
    place(*m_spacer, TabSpacerWidth(width() * kTwipsPerPixel, fixed * kTwipsPerPixel) / kTwipsPerPixel);
    place(*m_right, std::max(m_right->PictureSize().width(), width() - left));
}

void SectionTabRow::resizeEvent(QResizeEvent*)
{
    Arrange();
}

} // namespace kelvado
