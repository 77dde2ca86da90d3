#ifndef QUOR_DOCTOR_FILE_FACTS_H
#define QUOR_DOCTOR_FILE_FACTS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "doctor/facts.h"

namespace quor::doctor {

std::string Utf8(const std::wstring& text);
std::wstring Wide(const std::string& utf8);

// The path by which this program opens the file that a program of that bitness finds at `path`:
// the two bitnesses have different folders for "System32".
std::wstring PathToOpen(const std::wstring& path, int bitness);

bool FileExists(const std::wstring& path);

enum class FilePart { Start, LastLines };

// The first 32 MB of a file, or its whole lines in the last 32 MB; nothing if it cannot be read.
std::optional<std::vector<uint8_t>> ReadFileBytes(const std::wstring& path,
                                                  FilePart part = FilePart::Start);

// The version in the version resource, such as "1.0.0.0"; empty if there is none.
std::string FileVersion(const std::wstring& path);

// The add-in's files in the user's application-data folder.
SettingsFile GatherSettings();

// How long Outlook waited for the add-in, as measured by the add-in.
std::vector<SessionTimes> GatherSessions();

}  // namespace quor::doctor

#endif
