#include "ui/PictureBox.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

namespace kelvado {

namespace {

// The longest side that is kept: more than a screen shows.
constexpr int kLongestSide = 3000;
// A small file can claim any size, and unpacking it holds up the window. The reader's own limit of memory leaves out JPEG pictures,
// which are unpacked in a smaller size at once.
constexpr qint64 kMostPixels = 200'000'000;
constexpr int kMargin = 4;

// The content decides, not the name. Drawings are no pictures: they may take any time to draw.
bool CanRead(QImageReader& reader)
{
    reader.setDecideFormatFromContent(true);
    return reader.canRead() && !reader.format().startsWith("svg");
}

QImage ReadPicture(const QString& path)
{
    QImageReader reader(path);
    if (!CanRead(reader))
        return {};
    const QSize size = reader.size();
    const bool isJpeg = reader.format() == "jpeg";
    if (static_cast<qint64>(size.width()) * size.height() > kMostPixels)
        return {};
    reader.setAutoTransform(true);
    const QSize bound(kLongestSide, kLongestSide);
    const bool isLarge = size.width() > kLongestSide || size.height() > kLongestSide;
    if (isLarge && isJpeg)
        reader.setScaledSize(size.scaled(bound, Qt::KeepAspectRatio).expandedTo({1, 1}));
    const QImage picture = reader.read();
    return isLarge && !isJpeg ? picture.scaled(bound, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
}

bool IsPictureFile(const QString& path)
{
    QImageReader reader(path);
    return QFileInfo(path).isFile() && CanRead(reader);
}

QString PictureFileOf(const QMimeData& data)
{
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile() && IsPictureFile(url.toLocalFile()))
            return url.toLocalFile();
    }
    return {};
}

bool HoldsPicture(const QMimeData* data)
{
    return data && (data->hasImage() || !PictureFileOf(*data).isEmpty());
}

// A picture that came without a file: what the user copied out of another program.
QString WriteTemporary(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (picture.isNull() || !picture.save(&buffer, "PNG"))
        return {};
    // A name of its own: whoever stores the picture later must not find the next one.
    static int s_pasted = 0;
    QString path = TempFolder() + u"/pasted%1.png"_s.arg(++s_pasted);
    QDir().mkpath(TempFolder());
    WriteFileFast(path, bytes);
    return path;
}

} // namespace

PictureBox::PictureBox(QWidget* parent) : QFrame(parent), m_emptyText(tr("No picture"))
{
    setFrameShape(QFrame::StyledPanel);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    Clear();
}

bool PictureBox::IsPicture(const QString& path)
{
    return IsPictureFile(path);
}

void PictureBox::SetReadOnly()
{
    m_isReadOnly = true;
    setFocusPolicy(Qt::NoFocus);
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    Show(m_text);
}

void PictureBox::SetPicture(const QString& path)
{
    m_picture = ReadPicture(path);
    Show(m_picture.isNull() ? tr("This picture cannot be shown") : QString());
}

void PictureBox::Clear()
{
    m_picture = {};
    Show(m_emptyText);
}

void PictureBox::SetEmptyText(const QString& text)
{
    const bool isEmpty = m_picture.isNull() && m_text == m_emptyText;
    m_emptyText = text;
    if (isEmpty)
        Clear();
}

void PictureBox::Show(const QString& text)
{
    m_text = text;
    m_fitted = {};
    const QString use = m_isReadOnly ? QString() : tr("A picture can be pasted or dropped here.");
    setAccessibleDescription(text.isEmpty() ? use : text + u". "_s + use);
    update();
}

QSize PictureBox::sizeHint() const
{
    const int unit = fontMetrics().height();
    return {10 * unit, 14 * unit};
}

void PictureBox::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect room = contentsRect();
    painter.fillRect(room, palette().base());
    if (m_picture.isNull()) {
        painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::PlaceholderText));
        painter.drawText(room.adjusted(kMargin, kMargin, -kMargin, -kMargin), Qt::AlignCenter | Qt::TextWordWrap, m_text);
    } else {
        const QSize size = m_picture.size().scaled(room.size() * devicePixelRatioF(), Qt::KeepAspectRatio);
        if (m_fitted.size() != size) {
            m_fitted = QPixmap::fromImage(m_picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
            m_fitted.setDevicePixelRatio(devicePixelRatioF());
        }
        const QSizeF shown = m_fitted.deviceIndependentSize();
        painter.setOpacity(isEnabled() ? 1 : 0.4);
        painter.drawPixmap(QPointF(room.x() + (room.width() - shown.width()) / 2, room.y() + (room.height() - shown.height()) / 2),
                           m_fitted);
        painter.setOpacity(1);
    }
    if (hasFocus() || m_isTarget) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
}

void PictureBox::mousePressEvent(QMouseEvent* event)
{
    event->accept(); // the focus comes with the click
}

void PictureBox::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste))
        Paste();
    else
        QFrame::keyPressEvent(event);
}

void PictureBox::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    QAction* paste = menu.addAction(tr("&Paste Picture"), QKeySequence::Paste, this, &PictureBox::Paste);
    paste->setEnabled(HoldsPicture(QApplication::clipboard()->mimeData()));
    menu.exec(event->globalPos());
}

void PictureBox::dragEnterEvent(QDragEnterEvent* event)
{
    // Never a move, after which the file would be gone from its place.
    if (!event->possibleActions().testFlag(Qt::CopyAction) || !HoldsPicture(event->mimeData()))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_isTarget = true;
    update();
}

void PictureBox::dragLeaveEvent(QDragLeaveEvent*)
{
    m_isTarget = false;
    update();
}

void PictureBox::dropEvent(QDropEvent* event)
{
    m_isTarget = false;
    update();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Take(*event->mimeData());
}

void PictureBox::Paste()
{
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    if (HoldsPicture(copied))
        Take(*copied);
}

// The program that gave a dropped picture waits until it is taken, so whatever is asked or told about it comes afterwards.
void PictureBox::Take(const QMimeData& given)
{
    QString path = PictureFileOf(given);
    try {
        if (path.isEmpty())
            path = WriteTemporary(qvariant_cast<QImage>(given.imageData()));
    } catch (const RuntimeError& error) {
        QMetaObject::invokeMethod(
            this, [this, text = error.Description()] { Q_EMIT Failed(text); }, Qt::QueuedConnection);
        return;
    }
    if (!path.isEmpty())
        QMetaObject::invokeMethod(
            this, [this, path] { Q_EMIT FileChosen(path); }, Qt::QueuedConnection);
}

} // namespace kelvado
