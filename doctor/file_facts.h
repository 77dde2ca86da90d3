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

bool FileExists(const std::wstring& path);

// The first 32 MB of a file; nothing if it cannot be read.
std::optional<std::vector<uint8_t>> ReadFileBytes(const std::wstring& path);

// The version in the version resource, such as "1.0.0.0"; empty if there is none.
std::string FileVersion(const std::wstring& path);

// The add-in's files in the user's application-data folder.
SettingsFile GatherSettings();

// How long Outlook waited for the add-in, as measured by the add-in.
std::vector<SessionTimes> GatherSessions();

}  // namespace quor::doctor

#endif
