#pragma once

#include <QScrollArea>

namespace kelvado {

/// The panel host that scrolls a panel which is larger than itself.
class ScrollingImage : public QScrollArea
{
    Q_OBJECT
public:
    explicit ScrollingImage(QWidget* parent = nullptr);

    /// Takes `panel` as the content in place of the one before, which stays alive without a parent window.
    void SetPanel(QWidget* panel);
};

} // namespace kelvado
