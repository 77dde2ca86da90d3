#ifndef QUOR_CONTACTS_SCAN_FOLDER_H
#define QUOR_CONTACTS_SCAN_FOLDER_H

#include <cstdint>
#include <memory>

#include "contacts/contact_item.h"

namespace quor {

// A folder of Outlook's as the start-up scan sees it. Each operation answers whether it succeeded
// and may pump messages; only running out of memory throws. A folder serves one walk at a time, but
// a second walk may begin inside one of its calls: the first then makes no further call.
class IScanFolder {
 public:
  virtual ~IScanFolder() = default;

  // The number of items, of whatever type, in a collection of its own.
  virtual bool CountItems(int32_t& count) = 0;
  // Reads the folder's identity and opens its items; RecountItems and Item refer to them.
  virtual bool OpenItems(int32_t& count) = 0;
  virtual bool RecountItems(int32_t& count) = 0;
  // The item at a position, from 1. Empty when it is no contact; false when there is no item.
  virtual bool Item(int32_t position, std::shared_ptr<IContactItem>& contact) = 0;

  // False when the scan reads no subfolders, because no folder is listened to.
  virtual bool ReadsSubfolders() = 0;
  // Opens the subfolders, to which the following refer.
  virtual bool OpenFolders() = 0;
  virtual bool CountFolders(int32_t& count) = 0;
  // Empty when there is none.
  virtual bool LastFolder(std::shared_ptr<IScanFolder>& folder) = 0;
  virtual bool PreviousFolder(std::shared_ptr<IScanFolder>& folder) = 0;
};

}  // namespace quor

#endif
