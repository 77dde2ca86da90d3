#ifndef QUOR_SETTINGS_SETTINGS_STORE_H
#define QUOR_SETTINGS_SETTINGS_STORE_H

namespace quor {

// For code that changes the configuration and wants it saved.
class ISettingsStore {
 public:
  // Never throws: a configuration that cannot be written must not stop a call. A failure is logged,
  // the file stays unchanged, and the next save tries again.
  virtual void Save() noexcept = 0;

 protected:
  ~ISettingsStore() = default;
};

}  // namespace quor

#endif
