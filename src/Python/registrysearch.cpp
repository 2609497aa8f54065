#include "Python/registrysearch.h"

#include "HalvCore/widetext.h"

using Halvorin::System::narrowText;

namespace {

std::wstring below(std::wstring path, const std::wstring& name)
{
    path += L'\\';
    return path += name;
}

std::vector<std::wstring> subKeys(RegistryReader& registry, RegistryRoot root, const std::wstring& path)
{
    std::vector<std::wstring> names;
    if (const auto key = registry.open(root, path)) {
        while (auto name = key->subKey(static_cast<unsigned>(names.size())))
            names.push_back(std::move(*name));
    }
    return names;
}

/// The interpreter's path as a tag gives it; empty when it gives none.
std::wstring interpreterPath(RegistryReader& registry, RegistryRoot root, const std::wstring& tagPath)
{
    const auto key = registry.open(root, below(tagPath, L"InstallPath"));
    if (!key)
        return {};
    std::wstring path = key->value(L"ExecutablePath").value_or(L"");
    if (!path.empty())
        return path;
    path = key->value(L"").value_or(L"");
    if (path.empty())
        return {};
    if (path.back() != L'\\')
        path += L'\\';
    return path + L"python.exe";
}

} // namespace

std::vector<PythonInstallation> searchRegistry(RegistryReader& registry, const VersionOfFile& versionOf)
{
    std::vector<PythonInstallation> found;
    for (const RegistryRoot root : {RegistryRoot::currentUser, RegistryRoot::localMachine}) {
        const std::wstring top = L"Software\\Python";
        for (const std::wstring& company : subKeys(registry, root, top)) {
            const std::wstring companyPath = below(top, company);
            for (const std::wstring& tag : subKeys(registry, root, companyPath)) {
                const std::wstring tagPath = below(companyPath, tag);
                const auto key = registry.open(root, tagPath);
                const std::wstring path = interpreterPath(registry, root, tagPath);
                if (!key || path.empty())
                    continue;
                const auto version = key->value(L"SysVersion");
                found.push_back({company, version ? narrowText(*version) : versionOf(path), path});
            }
        }
    }
    return found;
}
