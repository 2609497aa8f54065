#include "Python/windowsregistry.h"

#include <windows.h>

namespace {

constexpr DWORD longestKeyName = 256; // characters, with the final zero

class OpenKey : public RegistryKey
{
public:
    explicit OpenKey(HKEY key) : m_key(key) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() override { RegCloseKey(m_key); }

    std::optional<std::wstring> subKey(unsigned index) const override
    {
        wchar_t name[longestKeyName];
        if (RegEnumKeyW(m_key, index, name, longestKeyName) != ERROR_SUCCESS)
            return std::nullopt;
        return std::wstring(name);
    }

    std::optional<std::wstring> value(const std::wstring& name) const override
    {
        DWORD size = 0; // in bytes, with the final zero
        if (RegGetValueW(m_key, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
            ERROR_SUCCESS)
            return std::nullopt;
        std::wstring text(size / sizeof(wchar_t), L'\0');
        if (RegGetValueW(m_key, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
            ERROR_SUCCESS)
            return std::nullopt;
        text.resize(text.find(L'\0') == std::wstring::npos ? text.size() : text.find(L'\0'));
        return text;
    }

private:
    HKEY m_key;
};

} // namespace

std::unique_ptr<RegistryKey> WindowsRegistry::open(RegistryRoot root, const std::wstring& path)
{
    const HKEY parent = root == RegistryRoot::currentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return nullptr;
    return std::make_unique<OpenKey>(key);
}
