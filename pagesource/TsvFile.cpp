#include "TsvFile.h"

#include "Database.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <zlib.h>

namespace pagesource {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20;
constexpr unsigned kPackedBlockSize = 1 << 18;
// No line of a table is as long; a file of something else is refused before it fills the memory.
constexpr std::size_t kLongestLine = std::size_t{16} << 20;

} // namespace

void TsvFile::Close::operator()(gzFile_s* file) const
{
    gzclose(file);
}

TsvFile::TsvFile(const std::string& path, std::span<const std::string_view> columns)
    : m_name(std::filesystem::path(path).filename().string()), m_file(gzopen(path.c_str(), "rb")), m_block(kBlockSize),
      m_wanted(columns.size())
{
    if (!m_file)
        throw Failure(path + ": " + std::strerror(errno));
    gzbuffer(m_file.get(), kPackedBlockSize);
    std::string_view header;
    if (!ReadLine(header))
        throw Failure(m_name + " is empty.");
    std::vector<bool> found(columns.size());
    while (true) {
        const std::size_t end = std::min(header.find('\t'), header.size());
        const auto column = std::find(columns.begin(), columns.end(), header.substr(0, end));
        m_wantedOf.push_back(column == columns.end() ? -1 : static_cast<int>(column - columns.begin()));
        if (column != columns.end())
            found[column - columns.begin()] = true;
        if (end == header.size())
            break;
        header.remove_prefix(end + 1);
    }
    m_columnCount = m_wantedOf.size();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!found[i])
            throw Failure(m_name + " has no column \"" + std::string(columns[i]) + "\".");
    }
}

TsvFile::Line TsvFile::Next()
{
    std::string_view line;
    do {
        if (!ReadLine(line))
            return Line::End;
    } while (line.empty());
    std::size_t column = 0;
    while (true) {
        const void* const tab = std::memchr(line.data(), '\t', line.size());
        const std::size_t end = tab ? static_cast<const char*>(tab) - line.data() : line.size();
        if (column == m_columnCount)
            return Line::Malformed;
        if (const int wanted = m_wantedOf[column]; wanted >= 0) {
            const std::string_view value = line.substr(0, end);
            m_wanted[wanted] = value == "\\N" ? std::string_view() : value;
        }
        ++column;
        if (!tab)
            break;
        line.remove_prefix(end + 1);
    }
    return column == m_columnCount ? Line::Row : Line::Malformed;
}

std::string TsvFile::Place() const
{
    return m_name + ':' + std::to_string(m_line);
}

bool TsvFile::ReadLine(std::string_view& line)
{
    std::size_t searched = m_from;
    while (true) {
        if (const void* const end = std::memchr(m_block.data() + searched, '\n', m_end - searched)) {
            const std::size_t at = static_cast<const char*>(end) - m_block.data();
            line = std::string_view(m_block.data() + m_from, at - m_from);
            m_from = at + 1;
            break;
        }
        searched = m_end - m_from;
        if (Fill())
            continue;
        if (m_from == m_end)
            return false;
        line = std::string_view(m_block.data() + m_from, m_end - m_from);
        m_from = m_end;
        break;
    }
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    ++m_line;
    return true;
}

// Moves what is left to the front of the block and reads behind it. False at the end of the file.
bool TsvFile::Fill()
{
    if (m_atEnd)
        return false;
    std::memmove(m_block.data(), m_block.data() + m_from, m_end - m_from);
    m_end -= m_from;
    m_from = 0;
    if (m_end == m_block.size()) {
        if (m_block.size() >= kLongestLine)
            throw Failure(Place() + ": this line has no end.");
        m_block.resize(m_block.size() * 2);
    }
    const auto room = static_cast<unsigned>(m_block.size() - m_end);
    const int read = gzread(m_file.get(), m_block.data() + m_end, room);
    int fault = Z_OK;
    const char* const reason = gzerror(m_file.get(), &fault);
    // What stands in front of the cut counts: the next call, which brings nothing more, tells of it.
    if (fault == Z_BUF_ERROR && read == 0)
        throw Failure(m_name + " is cut behind line " + std::to_string(m_line) + ": the packed file has no end.");
    if (read < 0)
        throw Failure(m_name + " is damaged behind line " + std::to_string(m_line) + ": " + reason);
    m_end += static_cast<std::size_t>(read);
    m_atEnd = read == 0;
    return read > 0;
}

} // namespace pagesource
