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
    /// `key` is empty for a piece that is no tab.
    TabImage(const QString& name, const QString& key, QWidget* parent);

    const QString& Key() const { return m_key; }
    bool IsTab() const { return !m_key.isEmpty(); }
    /// Whether its tab is the one that is shown, as assistive programs are told.
    bool IsSelected() const { return m_selected; }
    void SetSelected(bool selected);
    /// Draws it as the one with the focus, for a row that takes the focus as a whole.
    void ShowFocus(bool shown);

    void SetPicture(const QPixmap& picture);
    qreal PictureScale() const { return m_picture.devicePixelRatio(); }
    QSize PictureSize() const { return m_picture.deviceIndependentSize().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_key;
    QPixmap m_picture;
    bool m_selected = false;
    bool m_focusShown = false;
};

/// A row of tabs and the pieces that join them.
class TabRow : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// Marks the tab of this key as the one that is shown; its pictures are loaded by the row itself.
    void SetSelected(const QString& key);

Q_SIGNALS:
    void TabClick(const QString& key);

protected:
    /// Makes a piece; one with a key is a tab, and `caption` is its name.
    TabImage* AddPiece(const char* name, QLatin1StringView key, const char* caption);
    /// Takes all pieces away.
    void Clear();
    /// The tabs in the order in which they were added.
    const QList<TabImage*>& Tabs() const { return m_tabs; }

private:
    QList<TabImage*> m_tabs;
};

/// The row of the four section tabs with the pieces that join them, placed side by side by the widths of their pictures. The keys are
/// the section names.
class SectionTabRow : public TabRow
{
    Q_OBJECT
public:
    explicit SectionTabRow(QWidget* parent = nullptr);

    /// Loads the pieces' pictures of `skin`. Raises `kErrFileNotFound` or `kErrInvalidPicture` where one is missing.
    void LoadPictures(const QString& skin, const TabPictures& pictures);
    /// Loads the two pieces that stay the same: what fills the row, and its right end.
    void LoadEnds(const QString& skin);
    void Arrange();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TabImage* Piece(TabPiece piece) const { return m_pieces[static_cast<std::size_t>(piece)]; }

    std::array<TabImage*, kTabPieces> m_pieces{};
    TabImage* m_spacer;
    TabImage* m_right;
};

} // namespace kelvado
