#pragma once

#include "core/RuntimeError.h"
#include "ui/SectionTabRow.h"

#include <QList>
#include <QPixmap>
#include <QRect>
#include <QString>

#include <algorithm>

namespace kelvado {

/// The records of one kind in a strip's coordinate file, by place from 0 or by name.
template<typename Record>
class KeyedRecords
{
public:
    /// Raises `kErrInvalidCall` for a name that is there already.
    void Add(const Record& record)
    {
        if (Find(record.name) != m_records.end())
            throw RuntimeError::WithDetail(kErrInvalidCall, record.name);
        m_records.append(record);
    }
    /// Raises `kErrSubscript` for a place that is none.
    Record& Item(qsizetype index)
    {
        if (index < 0 || index >= m_records.size())
            throw RuntimeError(kErrSubscript);
        return m_records[index];
    }
    /// Raises `kErrItemNotFound` with the name where there is none.
    Record& Item(const QString& name)
    {
        const auto record = Find(name);
        if (record == m_records.end())
            throw RuntimeError::WithDetail(kErrItemNotFound, name);
        return *record;
    }
    qsizetype Count() const { return m_records.size(); }
    void Remove(const QString& name)
    {
        Item(name);
        m_records.erase(Find(name));
    }
    auto begin() { return m_records.begin(); }
    auto end() { return m_records.end(); }

private:
    auto Find(const QString& name)
    {
        return std::ranges::find_if(m_records, [&](const Record& record) { return record.name.compare(name, Qt::CaseInsensitive) == 0; });
    }
    QList<Record> m_records;
};

/// A piece of the strip with a form for each state; the rectangles are places in the strip's picture, in pixels at 100 %.
struct cTabEnd
{
    QString name;
    QRect selected, plain;
};

struct cTabBar : cTabEnd
{
    int XPos = 0, YPos = 0; ///< where it was drawn last
};

/// The joint between two tabs.
struct cTabMid
{
    QString name;
    QRect place;
};

using cTabBars = KeyedRecords<cTabBar>;
using cTabEnds = KeyedRecords<cTabEnd>;
using cTabMids = KeyedRecords<cTabMid>;

/// A row of tabs whose pieces a skin draws in one picture and places by a coordinate file. The arrow keys, Home and End go from tab to
/// tab; the whole row is one stop of the Tab key.
class cTabControl final : public TabRow
{
    Q_OBJECT
public:
    /// A tab as its owner knows it.
    struct Tab
    {
        const char* name; ///< in the coordinate file
        const char* caption;
    };

    explicit cTabControl(QWidget* parent = nullptr);

    /// Reads `coordinates` and `picture`, files of `skin`'s folder, for `tabs` in their order, and selects the first one. The section
    /// `Tabs` of the coordinates has `Tabs` and `Seperators` (name, x and y when selected, x and y when not, width, height; records
    /// parted by "|") and `Mids` (name, x, y, width, height). Black parts of the picture show what is behind the strip.
    /// Where a file is missing or does not suit, the strip shows the captions alone, and `kErrFileNotFound`, `kErrInvalidPicture`,
    /// `kErrTypeMismatch`, `kErrSubscript` or `kErrItemNotFound` is raised.
    void Initialize(const QList<Tab>& tabs, const QString& skin, const QString& coordinates, const QString& picture);

    /// Draws the strip with tab `index`, from 1, as the selected one; a number that is none is ignored.
    void DrawBar(int index);
    /// The selected tab, from 1; 0 for none.
    int Selected() const { return m_selected; }

    cTabBars& Bars() { return m_bars; }
    cTabEnds& Ends() { return m_ends; }
    cTabMids& Mids() { return m_mids; }

Q_SIGNALS:
    /// The user chose another tab, from 1.
    void MouseDown(int tab);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void ReadCoordinates(const QString& path);
    void LoadGraphicDC(const QString& skin, const QString& picture);
    void DrawInitialBar(const QList<Tab>& tabs);
    void DrawCaptions();
    void Choose(int tab);
    void ShowFocus();
    QPixmap Cut(const QRect& place) const;

    cTabBars m_bars;
    cTabEnds m_ends;
    cTabMids m_mids;
    QImage m_picture;
    QList<TabImage*> m_pieces; ///< end, tab, joint, tab, …, end; the tabs alone where the captions are shown
    int m_selected = 0;
};

} // namespace kelvado
