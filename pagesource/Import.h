#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace pagesource {

struct ImportReport
{
    std::int64_t rows = 0;
    std::int64_t films = 0;
    std::int64_t otherTitles = 0;
    std::int64_t credits = 0;
    std::int64_t people = 0;
    std::int64_t leftOut = 0;            // titles with more than seven digits, which no page address holds
    std::int64_t malformed = 0;          // rows that were skipped
    std::vector<std::string> complaints; // the first of them, each with file and line
    std::vector<std::string> notices;    // files that were not there
    double seconds = 0;
};

/// Told every now and then what is being done: "title.basics.tsv.gz", and how many of its rows were read; 0 for work without rows.
using ImportProgress = std::function<void(const std::string& what, std::int64_t rows)>;

/// Makes a data file of the public data set files in a folder, each plain or packed: title.basics, and as far as they are there
/// title.ratings, title.akas, title.crew, title.principals and name.basics (.tsv or .tsv.gz).
/// Episodes of series are left out. `target` is replaced when the new file is whole; Failure leaves it as it was.
ImportReport ImportDataSets(const std::string& folder, const std::string& target, const ImportProgress& progress);

} // namespace pagesource
