#include "contacts/outlook_contact_fields.h"

#include "text/ansi.h"

namespace quor {
namespace {

template <typename Read>
bool ReadText(std::string& text, Read read) {
  try {
    AnsiFromWide(read().View(), text);
    return true;
  } catch (const _com_error&) {
    return false;
  }
}

}  // namespace

bool COutlookContactFields::ReadEntryId(std::string& entryId) {
  return ReadText(entryId, [this] { return m_item.EntryId(); });
}

bool COutlookContactFields::Save() {
  try {
    m_item.Save();
    return true;
  } catch (const _com_error&) {
    return false;
  }
}

bool COutlookContactFields::ReadFileAs(std::string& fileAs) {
  return ReadText(fileAs, [this] { return m_item.FileAs(); });
}

bool COutlookContactFields::ReadTelNumber(int telNumberType, std::string& number) {
  return ReadText(number, [&] { return m_item.TelephoneNumber(telNumberType); });
}

}  // namespace quor
