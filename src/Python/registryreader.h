#ifndef REGISTRYREADER_H
#define REGISTRYREADER_H

#include <memory>
#include <optional>
#include <string>

/// The registry as far as the search for Python needs it.

enum class RegistryRoot
{
    currentUser,
    localMachine,
};

/// A key that is open for reading.
class RegistryKey
{
public:
    virtual ~RegistryKey() = default;

    /// The name of a sub-key, counted from 0; nothing behind the last one.
    virtual std::optional<std::wstring> subKey(unsigned index) const = 0;

    /// A text value; the empty name is that of the key's default value. Nothing when there is none.
    virtual std::optional<std::wstring> value(const std::wstring& name) const = 0;
};

class RegistryReader
{
public:
    virtual ~RegistryReader() = default;

    /// Null when the key cannot be opened.
    virtual std::unique_ptr<RegistryKey> open(RegistryRoot root, const std::wstring& path) = 0;
};

#endif
