#pragma once

#include "core/SectionTabs.h"

#include <QAbstractButton>
#include <QPixmap>
#include <QWidget>

#include <array>

namespace kelvado {

/// One piece of the section tab row: its skin picture, stretched where the piece is wider. The tabs among the pieces can be pressed, also
/// by keyboard; joints and ends cannot.
class TabImage : public QAbstractButton
{
    Q_OBJECT
public:
    TabImage(const QString& name, QWidget* parent);

    void SetPicture(const QPixmap& picture);
    QSize PictureSize() const { return m_picture.deviceIndependentSize().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPixmap m_picture;
};

/// The row of the four section tabs with the pieces that join them, placed side by side by the widths of their pictures.
class SectionTabRow : public QWidget
{
    Q_OBJECT
public:
    explicit SectionTabRow(QWidget* parent = nullptr);

    /// Loads the pieces' pictures of `skin`. Raises 53 or 481 where one is missing.
    void LoadPictures(const QString& skin, const TabPictures& pictures);
    /// Loads the two pieces that stay the same: what fills the row, and its right end.
    void LoadEnds(const QString& skin);
    void Arrange();

Q_SIGNALS:
    /// `section` is one of the four section names.
    void TabClick(const QString& section);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TabImage* Piece(TabPiece piece) const { return m_pieces[static_cast<std::size_t>(piece)]; }

    std::array<TabImage*, kTabPieces> m_pieces{};
    TabImage* m_spacer;
    TabImage* m_right;
};

} // namespace kelvado
