#pragma once
// SIGINT and SIGTERM stop a conversion between two files: the file being written
// is finished (every file goes through a temporary file and a rename), the run
// says where it stopped, and the new folder keeps its marker so that the next
// run into it knows the folder is incomplete.
#include <functional>
#include <string>

namespace tamrix::cli {

/// The exit status of an interrupted run, as a shell reports SIGINT.
inline constexpr int kInterruptedStatus = 130;
/// The file that marks a new folder while a conversion into it runs.
inline constexpr const char* kRunMarker = ".tamrix-running";

/// Catches SIGINT and SIGTERM; a run stops at its next read or write.
void InstallInterruptHandlers();
/// Ends the program when a signal came; each conversion's file system calls it
/// between two files, where nothing is half-written.
void StopIfInterrupted();
/// True once SIGINT or SIGTERM has come.
bool InterruptRequested();

/// What is said when the run stops; set for the length of a conversion.
void SetInterruptReport(std::function<void()> report);

}  // namespace tamrix::cli
