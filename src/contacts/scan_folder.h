#ifndef QUOR_CONTACTS_SCAN_FOLDER_H
#define QUOR_CONTACTS_SCAN_FOLDER_H

#include <cstdint>
#include <memory>

#include "contacts/contact_fields.h"

namespace quor {

// An Outlook folder, as used by the start-up scan. Each operation returns whether it succeeded and
// may pump messages; only running out of memory throws. A folder serves one walk at a time. A
// second walk may begin inside one of its calls; the first then makes no further call.
class IScanFolder {
 public:
  virtual ~IScanFolder() = default;

  // Counts the items, of any type. Does not affect the items opened by OpenItems.
  virtual bool CountItems(int32_t& count) = 0;
  // Reads the folder's entry ID and opens its items, which RecountItems and Item use.
  virtual bool OpenItems(int32_t& count) = 0;
  virtual bool RecountItems(int32_t& count) = 0;
  // The item at a position, from 1. `contact` is empty if the item is not a contact; false if there
  // is no such item.
  virtual bool Item(int32_t position, std::shared_ptr<IContactFields>& contact) = 0;

  // False if no folder is listened to: the scan then reads no subfolders.
  virtual bool ReadsSubfolders() = 0;
  // Opens the subfolders, which the operations below use.
  virtual bool OpenFolders() = 0;
  virtual bool CountFolders(int32_t& count) = 0;
  // Empty if there is none.
  virtual bool LastFolder(std::shared_ptr<IScanFolder>& folder) = 0;
  virtual bool PreviousFolder(std::shared_ptr<IScanFolder>& folder) = 0;
};

}  // namespace quor

#endif
