// How long creating many small files in one folder takes, by the way each is
// made: the floor under any tool that writes a new project, whatever it does
// with the text. Linux only.
//
//   file_creation FOLDER [FILES [BYTES]]
//
// Each way writes FILES files of BYTES bytes into a new folder under FOLDER,
// three times, alternating; the median time of each is printed with its ratio
// to a plain create (which a killed run can leave half-written).
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

std::string g_content;

bool WriteFully(int fd) {
    return ::write(fd, g_content.data(), g_content.size()) ==
           static_cast<ssize_t>(g_content.size());
}

// Creates the file under its own name.
bool Plain(int folder, const std::string& name) {
    const int fd = ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) return false;
    const bool ok = WriteFully(fd);
    return ::close(fd) == 0 && ok;
}

// Writes an unnamed file and links it in when whole: how Tamrix writes.
bool Unnamed(int folder, const std::string& name) {
    const int fd = ::openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (fd < 0) return false;
    bool ok = WriteFully(fd);
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    ok = ok && ::linkat(AT_FDCWD, self.c_str(), folder, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    return ::close(fd) == 0 && ok;
}

// Writes a temporary name and renames it when whole.
bool Renamed(int folder, const std::string& name) {
    const std::string temp = ".tmp-" + name;
    return Plain(folder, temp) && ::renameat(folder, temp.c_str(), folder, name.c_str()) == 0;
}

using Way = bool (*)(int, const std::string&);

// Seconds to write `files` files the given way with `threads` threads.
double Time(const std::string& path, Way way, int files, int threads) {
    ::mkdir(path.c_str(), 0777);
    const int folder = ::open(path.c_str(), O_DIRECTORY | O_RDONLY | O_CLOEXEC);
    if (folder < 0) {
        std::perror(path.c_str());
        std::exit(1);
    }
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&, t] {
            for (int i = t; i < files; i += threads) {
                if (!way(folder, "topic" + std::to_string(i) + ".htm")) {
                    std::perror(path.c_str());
                    std::exit(1);
                }
            }
        });
    }
    for (auto& w : workers) w.join();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    ::close(folder);
    return took.count();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: file_creation FOLDER [FILES [BYTES]]\n");
        return 2;
    }
    const std::string root = argv[1];
    const int files = argc > 2 ? std::atoi(argv[2]) : 10000;
    const std::size_t bytes = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 4500;
    g_content.assign(bytes, 'x');
    struct Case {
        const char* label;
        Way way;
        int threads;
        std::vector<double> times;
    };
    std::vector<Case> cases = {{"plain create (not safe if killed)", Plain, 1, {}},
                               {"unnamed file, then link", Unnamed, 1, {}},
                               {"temporary name, then rename", Renamed, 1, {}},
                               {"unnamed file, then link, 2 threads", Unnamed, 2, {}}};
    int folder = 0;
    for (int run = 0; run < 3; ++run) {
        for (Case& c : cases) {
            ::sync();  // the last case's data goes to disk outside the timing
            c.times.push_back(
                Time(root + "/f" + std::to_string(folder++), c.way, files, c.threads));
        }
    }
    std::printf("| way (%d files of %zu bytes, one folder) | seconds | ratio to plain |\n", files,
                bytes);
    std::printf("|---|---:|---:|\n");
    double plain = 0;
    for (Case& c : cases) {
        std::sort(c.times.begin(), c.times.end());
        const double median = c.times[1];
        if (plain == 0) plain = median;
        std::printf("| %s | %.3f | %.2f |\n", c.label, median, median / plain);
    }
    return 0;
}
