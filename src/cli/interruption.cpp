#include "cli/interruption.h"

#include <signal.h>

#include <cstdlib>
#include <utility>

namespace tamrix::cli {
namespace {

volatile sig_atomic_t g_interrupted = 0;

void OnSignal(int) { g_interrupted = 1; }

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
    struct sigaction action {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

bool InterruptRequested() { return g_interrupted != 0; }

void SetInterruptReport(std::function<void()> report) { Report() = std::move(report); }

}  // namespace tamrix::cli
