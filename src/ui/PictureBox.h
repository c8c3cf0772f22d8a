#pragma once

#include <QFrame>
#include <QImage>
#include <QPixmap>
#include <QString>

class QMimeData;

namespace kelvado {

/// Shows one picture as large as it fits, and takes another one that is dropped on it or pasted. A file that holds no picture, a broken
/// one or one that would take too much memory shows as a text.
class PictureBox : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString emptyText READ EmptyText WRITE SetEmptyText)
public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// Whether the file holds a picture that can be shown, whatever it is called.
    static bool IsPicture(const QString& path);

    /// Only shows its picture: it takes none and has no focus.
    void SetReadOnly();

    /// Shows the picture file at `path`; the file itself is not held open.
    void SetPicture(const QString& path);
    /// Shows `EmptyText`.
    void Clear();
    bool HasPicture() const { return !m_picture.isNull(); }

    QString EmptyText() const { return m_emptyText; }
    void SetEmptyText(const QString& text);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user dropped or pasted a picture: the path of a file that holds one. A picture without a file was written into the folder
    /// for temporary files.
    void FileChosen(const QString& path);
    /// A picture without a file could not be written there.
    void Failed(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Show(const QString& text);
    void Take(const QMimeData& given);
    void Paste();

    QImage m_picture;
    QPixmap m_fitted; ///< the picture in the size in which it was painted last
    QString m_emptyText;
    QString m_text; ///< stands where no picture is
    bool m_isReadOnly = false;
    bool m_isTarget = false; ///< a picture hangs above it
};

} // namespace kelvado
