#include "cli/batch.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace tamrix::cli {
namespace {

// Exit statuses from the least to the most severe.
constexpr int kSeverity[] = {0, 3, 1, 2};

int Rank(int status) {
    const auto it = std::find(std::begin(kSeverity), std::end(kSeverity), status);
    return it == std::end(kSeverity) ? 4 : static_cast<int>(it - std::begin(kSeverity));
}

const char* Outcome(int status) {
    switch (status) {
        case 0: return "done";
        case 3: return "done with problems";
        case 1: return "stopped at a step";
        case 2: return "not started (usage error)";
        default: return "failed";
    }
}

// The names on a batch line: separated by blanks, a name with blanks in double
// quotes. False on an unterminated quote.
bool SplitBatchLine(const std::string& line, std::vector<std::string>& names) {
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
        if (i >= line.size()) return true;
        if (line[i] == '"') {
            const std::size_t end = line.find('"', i + 1);
            if (end == std::string::npos) return false;
            names.push_back(line.substr(i + 1, end - i - 1));
            i = end + 1;
        } else {
            const std::size_t end = line.find_first_of(" \t", i);
            names.push_back(line.substr(i, end == std::string::npos ? end : end - i));
            i = end == std::string::npos ? line.size() : end;
        }
    }
}

struct Result {
    int status = 0;
    std::string out;
    std::string err;
};

// What a project printed, indented under its line.
void PrintIndented(const std::string& text, std::ostream& err) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (!line.empty()) err << "    " << line << "\n";
}

}  // namespace

bool ReadBatchFile(const std::string& text, CliOptions& options, std::string& error) {
    std::size_t start = 0;
    for (long number = 1; start < text.size(); ++number) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] == '#') continue;
        std::vector<std::string> names;
        const bool split = SplitBatchLine(line, names);
        if (!split || names.size() < 2 || names.size() > 3) {
            error = options.batchFile + ":" + std::to_string(number) + ": " +
                    (split ? "a line holds OLD.hhp NEW and optionally OLD.hpj"
                           : "a quoted name has no closing quote");
            return false;
        }
        options.batch.push_back({names[0], names[1], names.size() == 3 ? names[2] : ""});
    }
    if (options.batch.empty()) {
        error = options.batchFile + ": names no project";
        return false;
    }
    return true;
}

int RunBatch(CliOptions options, const ConvertProject& convert, std::ostream& out,
             std::ostream& err) {
    if (!options.batchFile.empty()) {
        std::ifstream file(options.batchFile, std::ios::binary);
        if (!file) {
            err << "tamrix-cli: cannot read the batch file " << options.batchFile << "\n";
            return 2;
        }
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        std::string error;
        if (!ReadBatchFile(text, options, error)) {
            err << "tamrix-cli: " << error << "\n";
            return 2;
        }
    }
    const std::size_t count = options.batch.size();
    std::vector<Result> results(count);
    std::atomic<std::size_t> next{0};
    // Each worker takes the next project until none is left; every project has a
    // conversion of its own, so they share nothing but the catalogue.
    auto work = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            CliOptions one = options;
            one.batch.clear();
            one.batchFile.clear();
            one.oldProject = options.batch[i].oldProject;
            one.newProject = options.batch[i].newProject;
            one.hpj = options.batch[i].hpj;
            one.quiet = true;
            std::ostringstream projectOut, projectErr;
            results[i].status = convert(one, projectOut, projectErr);
            results[i].out = projectOut.str();
            results[i].err = projectErr.str();
        }
    };
    const std::size_t workers =
        std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, count);
    std::vector<std::thread> threads;
    for (std::size_t w = 1; w < workers; ++w) threads.emplace_back(work);
    work();
    for (std::thread& thread : threads) thread.join();

    int worst = 0;
    int byOutcome[4] = {};
    for (std::size_t i = 0; i < count; ++i) {
        const Result& result = results[i];
        out << "[" << i + 1 << "/" << count << "] " << options.batch[i].oldProject << " -> "
            << options.batch[i].newProject << ": " << Outcome(result.status) << "\n";
        out.flush();
        PrintIndented(result.out + result.err, err);
        err.flush();
        if (Rank(result.status) > Rank(worst)) worst = result.status;
        ++byOutcome[std::min(Rank(result.status), 3)];
    }
    out << "Total: " << count << " project" << (count == 1 ? "" : "s") << ", " << byOutcome[0]
        << " done, " << byOutcome[1] << " with problems, " << byOutcome[2] << " stopped, "
        << byOutcome[3] << " not started.\n";
    return worst;
}

}  // namespace tamrix::cli
