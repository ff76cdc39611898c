#include "cli/interruption.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <signal.h>
#endif

#include <atomic>
#include <cstdlib>
#include <utility>

namespace tamrix::cli {
namespace {

#ifdef _WIN32
// Windows calls the console handler on a thread of its own.
std::atomic<int> g_interrupted{0};

BOOL WINAPI OnConsoleEvent(DWORD event) {
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT && event != CTRL_CLOSE_EVENT)
        return FALSE;
    g_interrupted = 1;
    return TRUE;
}
#else
volatile sig_atomic_t g_interrupted = 0;

void OnSignal(int) { g_interrupted = 1; }
#endif

std::function<void()>& Report() {
    static std::function<void()> report;
    return report;
}

}  // namespace

void StopIfInterrupted() {
    if (g_interrupted == 0) return;
    if (Report()) Report()();
    std::_Exit(kInterruptedStatus);
}

void InstallInterruptHandlers() {
#ifdef _WIN32
    ::SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
#else
    struct sigaction action {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
#endif
}

bool InterruptRequested() { return g_interrupted != 0; }

void SetInterruptReport(std::function<void()> report) { Report() = std::move(report); }

}  // namespace tamrix::cli
