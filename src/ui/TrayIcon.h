#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <memory>

class QSystemTrayIcon;
class QTimer;

namespace kelvado {

/// Messages of the tray icon to its window.
inline constexpr int kTrayLeftDown = 513;
inline constexpr int kTrayDoubleClick = 515;
inline constexpr int kTrayRightDown = 516;

/// The program's icon in the tray. Where the desktop has no tray it does nothing.
class TrayIcon : public QObject
{
    Q_OBJECT
public:
    explicit TrayIcon(QObject* parent = nullptr);
    ~TrayIcon() override;

    static bool IsAvailable();

    void SetIcon(const QIcon& icon);
    /// At most 63 characters are kept.
    void SetTipText(const QString& text);
    QString TipText() const { return m_tipText; }

    void ShowTrayIcon();
    void HideTrayIcon();
    void Update();
    /// Lets the icon blink for a moment.
    void Flash();

Q_SIGNALS:
    /// `message` is one of the numbers above.
    void Message(int message);

private:
    std::unique_ptr<QSystemTrayIcon> m_icon;
    QTimer* m_flash;
    QIcon m_picture;
    QString m_tipText;
    int m_flashesLeft = 0;
};

} // namespace kelvado
