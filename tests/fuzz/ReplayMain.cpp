// replay_NAME DICTIONARY SEED…: feeds a fuzz target its seeds (files, or folders of files), then two
// seconds of mutations of them. The mutations follow from a fixed number, so that a run that fails does so again; the number of the failing
// input is on the screen.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr auto kRunTime = std::chrono::seconds(2);
constexpr auto kSlowest = std::chrono::seconds(5);

std::string ReadFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> ReadSeeds(char** begin, char** end)
{
    std::vector<std::string> seeds{std::string()};
    for (char** path = begin; path != end; ++path) {
        if (!fs::is_directory(*path)) {
            seeds.push_back(ReadFile(*path));
            continue;
        }
        for (const fs::directory_entry& entry : fs::directory_iterator(*path)) {
            if (entry.is_regular_file())
                seeds.push_back(ReadFile(entry.path()));
        }
    }
    return seeds;
}

// The words of a dictionary in the form that fuzzers read: one in quotes on a line, with \" and \\ for the two.
std::vector<std::string> ReadDictionary(const char* path)
{
    std::vector<std::string> words;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::size_t open = line.find('"');
        if (line.starts_with('#') || open == std::string::npos)
            continue;
        std::string word;
        for (std::size_t i = open + 1; i < line.size() && line[i] != '"'; ++i)
            word += line[line[i] == '\\' ? ++i : i];
        words.push_back(word);
    }
    return words;
}

class Mutator
{
public:
    Mutator(const std::vector<std::string>& seeds, const std::vector<std::string>& words) : m_seeds(seeds), m_words(words) {}

    std::string Next()
    {
        std::string text = m_seeds[Below(m_seeds.size())];
        for (std::size_t change = 1 + Below(8); change > 0; --change)
            Change(text);
        return text;
    }

private:
    std::size_t Below(std::size_t bound) { return bound == 0 ? 0 : m_random() % bound; }

    void Change(std::string& text)
    {
        const std::size_t at = Below(text.size() + 1);
        const std::size_t length = Below(std::min<std::size_t>(text.size() - at, 400) + 1);
        switch (Below(6)) {
        case 0: // another character
            if (at < text.size())
                text[at] = static_cast<char>(Below(256));
            break;
        case 1: // the page ends here
            text.resize(at);
            break;
        case 2: // a piece is missing
            text.erase(at, length);
            break;
        case 3: // a piece comes again elsewhere
            text.insert(Below(text.size() + 1), text.substr(at, length));
            break;
        case 4: // a known word
            text.insert(at, m_words[Below(m_words.size())]);
            break;
        case 5: // a known word is missing
            if (const std::string& word = m_words[Below(m_words.size())]; !word.empty()) {
                if (const std::size_t place = text.find(word, at); place != std::string::npos)
                    text.erase(place, word.size());
            }
            break;
        }
    }

    const std::vector<std::string>& m_seeds;
    const std::vector<std::string>& m_words;
    std::mt19937 m_random{20030401};
};

bool Feed(const std::string& text, long number)
{
    const auto start = Clock::now();
    try {
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    } catch (const std::exception& failure) {
        std::printf("input %ld (%zu bytes) let out: %s\n", number, text.size(), failure.what());
        return false;
    }
    if (Clock::now() - start > kSlowest) {
        std::printf("input %ld (%zu bytes) took too long\n", number, text.size());
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::puts("usage: replay DICTIONARY SEED...");
        return 2;
    }
    const std::vector<std::string> words = ReadDictionary(argv[1]);
    const std::vector<std::string> seeds = ReadSeeds(argv + 2, argv + argc);
    if (words.empty() || seeds.size() < 2 || seeds[1].empty()) {
        std::puts("The dictionary or the seeds cannot be read.");
        return 2;
    }
    long inputs = 0;
    for (const std::string& seed : seeds) {
        if (!Feed(seed, inputs++))
            return 1;
    }
    Mutator mutator(seeds, words);
    for (const auto end = Clock::now() + kRunTime; Clock::now() < end;) {
        if (!Feed(mutator.Next(), inputs++))
            return 1;
    }
    std::printf("%ld inputs\n", inputs);
    return 0;
}
