#include "ui/Skinner.h"

#include "core/Literals.h"
#include "core/Paths.h"
#include "core/RuntimeError.h"
#include "core/SafeFile.h"
#include "ui/ctxListItem.h"
#include "ui/ctxListObjects.h"

#include <QApplication>
#include <QFontDatabase>
#include <QRegularExpression>
#include <QtWidgets>

#include <algorithm>
#include <cmath>

namespace kelvado {

namespace {

struct ColorKey
{
    const char* key;
    QColor SkinValues::*value;
};
constexpr ColorKey kColorKeys[] = {
    {"LabelBackColor", &SkinValues::labelBack},       {"LabelFontColor", &SkinValues::labelText},
    {"TextFontColor", &SkinValues::boxText},          {"TextBackColor", &SkinValues::boxBack},
    {"SubNavSelect", &SkinValues::subNavSelected},    {"SubNavInActive", &SkinValues::subNavIdle},
    {"GeneralBackColor", &SkinValues::windowBack},    {"TreeBackColor", &SkinValues::treeBack},
    {"TreeItemBack", &SkinValues::treeItemBack},      {"TreeItemFront", &SkinValues::treeItemText},
    {"ProgressBarFront", &SkinValues::progressFront}, {"ProgressBarBack", &SkinValues::progressBack},
    {"Status3Dlight", &SkinValues::statusLight},      {"StatusBackColor", &SkinValues::statusBack},
    {"Status3Ddark", &SkinValues::statusDark},
};

struct MenuColorKey
{
    const char* name;
    const char* key;
};
constexpr MenuColorKey kMenuColorKeys[] = {
    {"MENU_BLOCK", "MenuBlockColor"},
    {"MENU_BACK", "MenuBackColor"},
    {"MENU_HIGHLIGHT", "MenuHighlightColor"},
    {"MENUBAR_BACK", "MenuBarBackColor"},
};

constexpr int kPointSize = 10;
constexpr const char* kPainted = "paintedBySkin"; ///< the mark of a form that lies in the main window

bool IsDark(const QColor& color)
{
    return qGray(color.rgb()) < 128;
}

QColor ReadableOn(const QColor& back)
{
    return IsDark(back) ? Qt::white : QColor(0x1F, 0x29, 0x33);
}

// The ratio by which readability is measured: 1 for equal colors, 21 for black on white.
double Contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

// The text's color, faded towards its background as far as it stays readable, by half at most.
QColor Faded(const QColor& text, const QColor& back)
{
    constexpr double kReadable = 4.5;
    for (const float part : {0.5F, 0.4F, 0.3F, 0.2F, 0.1F}) {
        if (const QColor faded = Mixed(text, back, part); Contrast(faded, back) >= kReadable)
            return faded;
    }
    return text;
}

// In a view that cannot be worked with the selection stays visible, but calls nobody.
void PaintSelection(QPalette& palette, const QColor& skinColor)
{
    constexpr float kFadedPart = 0.2F;
    const QColor color = Visible(skinColor, palette.color(QPalette::Base));
    palette.setColor(QPalette::Highlight, color);
    palette.setColor(QPalette::HighlightedText, ReadableOn(color));
    const QColor faded = Mixed(palette.color(QPalette::Base), color, kFadedPart);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, faded);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, Faded(palette.color(QPalette::Text), faded));
}

void SetFamily(QWidget& widget, const QString& family)
{
    QFont font = widget.font();
    font.setFamily(family);
    widget.setFont(font);
}

void Paint(QWidget& widget, const QColor& back, const QColor& skinText)
{
    const QColor text = Visible(skinText, back);
    QPalette palette = widget.palette();
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base})
        palette.setColor(role, back);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
        palette.setColor(QPalette::Active, role, text);
        palette.setColor(QPalette::Inactive, role, text);
    }
    widget.setPalette(palette);
}

// A link keeps its own text colour. What was read into the label has taken the colour that links had then.
void PaintLink(QLabel& label, const QColor& back)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::Window, back);
    label.setPalette(palette);
    const QString text = label.text();
    label.clear();
    label.setText(text);
}

bool IsColor(const QString& text)
{
    static const QRegularExpression s_form(u"^([0-9a-f]{6}|&h[0-9a-f]{1,8}&*)$"_s, QRegularExpression::CaseInsensitiveOption);
    return s_form.match(text).hasMatch();
}

// Menus and boxes that drop down have the colours of what they belong to; a tip has those of all tips.
bool IsWindow(const QWidget& widget)
{
    return widget.windowType() != Qt::Popup && widget.windowType() != Qt::ToolTip;
}

// The rows of a list come and go, in the colours of the list.
bool IsInRows(const QWidget& control)
{
    const QWidget* above = control.parentWidget();
    while (above && !qobject_cast<const ctxListItem*>(above))
        above = above->parentWidget();
    return above != nullptr;
}

} // namespace

QColor Mixed(const QColor& from, const QColor& to, float part)
{
    const auto between = [part](float first, float second) { return first + (second - first) * part; };
    return QColor::fromRgbF(between(from.redF(), to.redF()), between(from.greenF(), to.greenF()), between(from.blueF(), to.blueF()));
}

QColor Visible(const QColor& color, const QColor& back)
{
    return color == back ? ReadableOn(back) : color;
}

QColor ParseColor(const QString& text)
{
    if (text.startsWith(u"&H", Qt::CaseInsensitive)) {
        QString digits = text.mid(2);
        while (digits.endsWith(u'&'))
            digits.chop(1);
        const uint number = digits.toUInt(nullptr, 16);
        return QColor(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF), static_cast<int>(number >> 16 & 0xFF));
    }
    const auto pair = [](const QString& digits) { return static_cast<int>(digits.toUInt(nullptr, 16) & 0xFF); };
    return QColor(pair(text.left(2)), pair(text.mid(2, 2)), pair(text.right(2)));
}

// Without a name it is the skin that the settings name.
Profile Skinner::ReadSkinFile(const QString& skin)
{
    const QString name = skin.isEmpty() ? ReadProfileValue(u"Settings"_s, u"Skin"_s, SettingsFile()) : skin;
    return Profile(FindFileCaseBlind(SkinFolder(name), u"skin.ini"_s));
}

void Skinner::ApplySkin(const QString& skin)
{
    m_skin = skin;
    m_file = ReadSkinFile(skin);
    InstallSkinFont();
    LoadSkinValues();
    SetProgramFont();
    QApplication::setPalette(WindowPalette());
    QApplication::setPalette(MenuPalette(), "QMenu");
    QApplication::setPalette(MenuPalette(), "QMenuBar");
    // Also those that are hidden: a panel that gave way to another one, a window that is kept for the next time.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(window)) {
            SkinMainWindow(*window);
            for (QWidget* panel : window->findChildren<QWidget*>()) {
                if (panel->property(kPainted).toBool())
                    SkinForm(*panel);
            }
        } else if (IsWindow(*window)) {
            SkinForm(*window);
        }
    }
    Q_EMIT Changed();
}

QStringList Skinner::BadColors() const
{
    QStringList bad;
    const auto check = [&](const QString& section, const char* key) {
        if (m_file && !IsColor(m_file->Value(section, QLatin1StringView(key))))
            bad << u"[%1] %2"_s.arg(section, QLatin1StringView(key));
    };
    for (const ColorKey& entry : kColorKeys)
        check(u"Skin"_s, entry.key);
    for (const MenuColorKey& entry : kMenuColorKeys)
        check(u"Menu"_s, entry.key);
    return bad;
}

void Skinner::SetProgramFont()
{
    if (!m_desktopFont)
        m_desktopFont = QApplication::font();
    const bool installed = !m_values.fontName.isEmpty() && QFontDatabase::hasFamily(m_values.fontName);
    QApplication::setFont(installed ? QFont(m_values.fontName, kPointSize) : *m_desktopFont);
}

void Skinner::InstallSkinFont()
{
    const QString folder = SkinFolder(m_skin);
    if (m_skin.isEmpty() || !QFileInfo(folder).isDir())
        return;
    const QString fontFile = m_file->Value(u"Skin"_s, u"FontFile"_s);
    const QString path = FindFileCaseBlind(folder, fontFile);
    const bool named = !fontFile.isEmpty() && fontFile != u"0";
    // A font made known to this process goes with it, so it is registered at every start; the marker says that the skin has been used.
    if (named && QFileInfo(path).isFile() && !m_fontFiles.contains(path)) {
        QFontDatabase::addApplicationFont(path);
        m_fontFiles.insert(path);
    }
    if (QFileInfo::exists(folder + u"/install.skn"_s))
        return;
    try {
        WriteFileWhole(folder + u"/install.skn"_s, {});
    } catch (const RuntimeError&) {
        // A skin in a read-only folder works as well without its marker.
    }
}

void Skinner::LoadSkinValues()
{
    for (const ColorKey& entry : kColorKeys)
        m_values.*entry.value = ParseColor(m_file->Value(u"Skin"_s, QLatin1StringView(entry.key)));
    m_values.boxBorder = m_file->Value(u"Skin"_s, u"TextHasBorder"_s);
    m_values.fontName = m_file->Value(u"Skin"_s, u"Font"_s);
}

QColor Skinner::GetMenuColor(const QString& name) const
{
    for (const MenuColorKey& entry : kMenuColorKeys) {
        if (name == QLatin1StringView(entry.name))
            return ParseColor((m_file ? *m_file : ReadSkinFile(m_skin)).Value(u"Menu"_s, QLatin1StringView(entry.key)));
    }
    return ParseColor({});
}

QPalette Skinner::WindowPalette() const
{
    const SkinValues& v = m_values;
    const QColor button = IsDark(v.windowBack) ? v.windowBack.lighter(140) : v.windowBack.darker(104);
    QPalette palette(button, v.windowBack);
    const QColor labelText = Visible(v.labelText, v.windowBack);
    const QColor boxText = Visible(v.boxText, v.boxBack);
    palette.setColor(QPalette::WindowText, labelText);
    palette.setColor(QPalette::Base, v.boxBack);
    palette.setColor(QPalette::AlternateBase, button);
    palette.setColor(QPalette::Text, boxText);
    palette.setColor(QPalette::PlaceholderText, Faded(boxText, v.boxBack));
    palette.setColor(QPalette::ButtonText, ReadableOn(button));
    palette.setColor(QPalette::ToolTipBase, v.boxBack);
    palette.setColor(QPalette::ToolTipText, boxText);
    palette.setColor(QPalette::Link, v.subNavSelected);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Faded(labelText, v.windowBack));
    palette.setColor(QPalette::Disabled, QPalette::Text, Faded(boxText, v.boxBack));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, Faded(ReadableOn(button), button));
    PaintSelection(palette, v.progressFront);
    return palette;
}

QPalette Skinner::MenuPalette() const
{
    QPalette palette = WindowPalette();
    const QColor back = GetMenuColor(u"MENU_BACK"_s);
    const QColor bar = GetMenuColor(u"MENUBAR_BACK"_s);
    const QColor highlight = GetMenuColor(u"MENU_HIGHLIGHT"_s);
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::Window, back);
    palette.setColor(QPalette::Button, bar);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, ReadableOn(highlight));
    palette.setColor(QPalette::Text, ReadableOn(back));
    palette.setColor(QPalette::WindowText, ReadableOn(back));
    palette.setColor(QPalette::ButtonText, ReadableOn(bar));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, Faded(ReadableOn(back), back));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, Faded(ReadableOn(bar), bar));
    return palette;
}

void Skinner::SkinForm(QWidget& form) const
{
    const SkinValues& v = m_values;
    form.setProperty(kPainted, true);
    Paint(form, v.windowBack, v.labelText);
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (IsInRows(*control))
            continue;
        if (qobject_cast<QGroupBox*>(control)) {
            Paint(*control, v.labelBack, v.labelText);
        } else if (auto* label = qobject_cast<QLabel*>(control)) {
            if (label->objectName().contains(u"URL"))
                PaintLink(*label, v.labelBack);
            else
                Paint(*label, v.labelBack, v.labelText);
            if (!v.fontName.isEmpty())
                SetFamily(*label, v.fontName);
        } else if (auto* line = qobject_cast<QLineEdit*>(control)) {
            Paint(*line, v.boxBack, v.boxText);
            // The line of a combo box or a date field lies within its owner's frame.
            const bool framedByOwner = qobject_cast<QComboBox*>(line->parent()) || qobject_cast<QAbstractSpinBox*>(line->parent());
            line->setFrame(!framedByOwner && v.boxBorder != u"0");
        } else if (qobject_cast<QTextEdit*>(control) || qobject_cast<QPlainTextEdit*>(control)) {
            Paint(*control, v.boxBack, v.boxText);
            static_cast<QFrame*>(control)->setFrameShape(v.boxBorder == u"0" ? QFrame::NoFrame : QFrame::StyledPanel);
        } else if (qobject_cast<QPushButton*>(control)) {
            if (!v.fontName.isEmpty())
                SetFamily(*control, v.fontName);
        } else if (qobject_cast<QAbstractItemView*>(control) || qobject_cast<QComboBox*>(control)) {
            Paint(*control, v.boxBack, v.boxText);
        } else if (qobject_cast<ctxListObjects*>(control)) {
            control->setPalette(WindowPalette()); // its rows hold boxes, which stand out from it
        }
    }
}

void Skinner::SkinMainWindow(QWidget& window) const
{
    const SkinValues& v = m_values;
    Paint(window, v.windowBack, v.labelText);
    for (QLabel* label : window.findChildren<QLabel*>()) {
        Paint(*label, v.labelBack, v.labelText);
        if (!v.fontName.isEmpty())
            SetFamily(*label, v.fontName);
    }
    for (QTreeView* tree : window.findChildren<QTreeView*>()) {
        Paint(*tree, v.treeBack, v.treeItemText);
        // A selected row stays as strong while the focus is elsewhere.
        QPalette palette = tree->palette();
        PaintSelection(palette, v.progressFront);
        tree->setPalette(palette);
    }
    for (QProgressBar* bar : window.findChildren<QProgressBar*>()) {
        QPalette palette = bar->palette();
        palette.setColor(QPalette::Highlight, v.progressFront);
        palette.setColor(QPalette::Base, v.progressBack);
        palette.setColor(QPalette::Window, v.progressBack);
        bar->setPalette(palette);
    }
    for (QWidget* menu : window.findChildren<QWidget*>()) {
        if (qobject_cast<QMenu*>(menu) || qobject_cast<QMenuBar*>(menu))
            menu->setPalette(MenuPalette());
    }
}

} // namespace kelvado
