#ifndef QUOR_SETTINGS_SETTINGS_STORE_H
#define QUOR_SETTINGS_SETTINGS_STORE_H

namespace quor {

// For those who change the configuration and want it kept.
class ISettingsStore {
 public:
  // Never throws: a configuration that cannot be written must not stop a call. The failure is
  // logged, the file on disk stays as it was, and the next save tries again.
  virtual void Save() noexcept = 0;

 protected:
  ~ISettingsStore() = default;
};

}  // namespace quor

#endif
