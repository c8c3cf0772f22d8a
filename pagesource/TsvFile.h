#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct gzFile_s;

namespace pagesource {

/// A table as lines of tab-separated columns, the first line naming them; plain or packed with gzip. It is read in blocks: its size does
/// not matter.
class TsvFile
{
public:
    enum class Line { Row, Malformed, End };

    /// `columns` are those that are wanted, in the caller's order. Raises Failure for a file that cannot be read, has no first line or
    /// lacks one of the columns.
    TsvFile(const std::string& path, std::span<const std::string_view> columns);

    /// Reads on by one line; an empty line is none. A line with more or fewer columns than the first one is malformed.
    /// Raises Failure where a packed file is cut or damaged.
    Line Next();
    /// The wanted columns of the row at hand, "" where the file has "\N". They last until the next call of Next.
    std::string_view operator[](std::size_t column) const { return m_wanted[column]; }
    /// "title.basics.tsv.gz:17", for messages.
    std::string Place() const;
    const std::string& Name() const { return m_name; }

private:
    bool ReadLine(std::string_view& line);
    bool Fill();

    struct Close
    {
        void operator()(gzFile_s* file) const;
    };
    std::string m_name;
    std::unique_ptr<gzFile_s, Close> m_file;
    std::vector<char> m_block;
    std::size_t m_from = 0;
    std::size_t m_end = 0;
    bool m_atEnd = false;
    std::int64_t m_line = 0;
    std::size_t m_columnCount = 0;
    std::vector<int> m_wantedOf; // column of the file → wanted column, -1 for none
    std::vector<std::string_view> m_wanted;
};

} // namespace pagesource
