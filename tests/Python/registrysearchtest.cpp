#include "Python/registrysearch.h"

#include <map>

using Halvorin::System::FilePath;

namespace {

using Values = std::map<std::wstring, std::wstring>; // by name; the key's default value by the empty one

class FakeKey : public RegistryKey
{
public:
    FakeKey(std::vector<std::wstring> subKeys, Values values)
        : m_subKeys(std::move(subKeys)), m_values(std::move(values))
    {}

    std::optional<std::wstring> subKey(unsigned index) const override
    {
        return index < m_subKeys.size() ? std::optional(m_subKeys[index]) : std::nullopt;
    }
    std::optional<std::wstring> value(const std::wstring& name) const override
    {
        const auto found = m_values.find(name);
        return found != m_values.end() ? std::optional(found->second) : std::nullopt;
    }

private:
    std::vector<std::wstring> m_subKeys;
    Values m_values;
};

/// Keys by root and path, kept in the order of their names.
class FakeRegistry : public RegistryReader
{
public:
    Values& operator()(RegistryRoot root, const std::wstring& path) { return m_keys[{root, path}]; }

    /// A tag of "Software\Python" with its two keys.
    void add(RegistryRoot root, const std::wstring& companyAndTag, const Values& tag,
             const Values& installPath)
    {
        const std::wstring path = L"Software\\Python\\" + companyAndTag;
        (*this)(root, L"Software\\Python");
        (*this)(root, path.substr(0, path.rfind(L'\\')));
        (*this)(root, path) = tag;
        (*this)(root, path + L"\\InstallPath") = installPath;
    }

    std::unique_ptr<RegistryKey> open(RegistryRoot root, const std::wstring& path) override
    {
        const auto found = m_keys.find({root, path});
        if (found == m_keys.end() || path == locked)
            return nullptr;
        std::vector<std::wstring> subKeys;
        for (const auto& [place, values] : m_keys) {
            const auto& [otherRoot, other] = place;
            if (otherRoot == root && other.starts_with(path + L"\\") &&
                other.find(L'\\', path.size() + 1) == std::wstring::npos)
                subKeys.push_back(other.substr(path.size() + 1));
        }
        return std::make_unique<FakeKey>(subKeys, found->second);
    }

    std::wstring locked;

private:
    std::map<std::pair<RegistryRoot, std::wstring>, Values> m_keys;
};

class RegistrySearch : public testing::Test
{
protected:
    /// What is found, a line each: company, version and path.
    std::vector<std::string> found()
    {
        std::vector<std::string> lines;
        for (const auto& [company, version, path] : searchRegistry(registry, [this](const FilePath& file) {
                 asked.push_back(file.toString().toLegacyUtf8());
                 return std::string("9.9");
             }))
            lines.push_back(Halvorin::System::String(company).toLegacyUtf8() + " " + version + " " +
                            path.toString().toLegacyUtf8());
        return lines;
    }

    FakeRegistry registry;
    std::vector<std::string> asked;

    static constexpr auto user = RegistryRoot::currentUser;
    static constexpr auto machine = RegistryRoot::localMachine;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(RegistrySearch, FindsNothingInAnEmptyRegistry)
{
    EXPECT_EQ(found(), Lines{});
}

TEST_F(RegistrySearch, FindsEveryTagOfEveryCompany)
{
    registry.add(machine, L"Other\\A", {{L"SysVersion", L"3.10"}}, {{L"ExecutablePath", L"C:\\a.exe"}});
    registry.add(machine, L"PythonCore\\3.11", {{L"SysVersion", L"3.11"}},
                 {{L"ExecutablePath", L"C:\\b.exe"}});
    registry.add(machine, L"PythonCore\\3.12", {{L"SysVersion", L"3.12"}},
                 {{L"ExecutablePath", L"C:\\c.exe"}});
    EXPECT_EQ(found(),
              (Lines{"Other 3.10 C:\\a.exe", "PythonCore 3.11 C:\\b.exe", "PythonCore 3.12 C:\\c.exe"}));
    EXPECT_EQ(asked, Lines{});
}

TEST_F(RegistrySearch, GoesThroughTheUsersKeysBeforeTheMachines)
{
    registry.add(machine, L"A\\1", {{L"SysVersion", L"3.11"}}, {{L"ExecutablePath", L"machine"}});
    registry.add(user, L"B\\1", {{L"SysVersion", L"3.11"}}, {{L"ExecutablePath", L"user"}});
    EXPECT_EQ(found(), (Lines{"B 3.11 user", "A 3.11 machine"}));
}

TEST_F(RegistrySearch, TakesTheInstallationFolderWhereNoExecutableIsNamed)
{
    registry.add(user, L"C\\1", {{L"SysVersion", L"3.11"}}, {{L"", L"C:\\Python"}});
    registry.add(user, L"C\\2", {{L"SysVersion", L"3.11"}}, {{L"", L"C:\\Python\\"}});
    registry.add(user, L"C\\3", {{L"SysVersion", L"3.11"}}, {{L"ExecutablePath", L""}, {L"", L"D:\\"}});
    EXPECT_EQ(found(), (Lines{"C 3.11 C:\\Python\\python.exe", "C 3.11 C:\\Python\\python.exe",
                              "C 3.11 D:\\python.exe"}));
}

TEST_F(RegistrySearch, AsksTheFileWhereTheVersionIsAbsent)
{
    registry.add(user, L"C\\1", {}, {{L"ExecutablePath", L"C:\\a.exe"}});
    EXPECT_EQ(found(), (Lines{"C 9.9 C:\\a.exe"}));
    EXPECT_EQ(asked, (Lines{"C:\\a.exe"}));
}

TEST_F(RegistrySearch, PassesOverKeysThatCannotBeOpened)
{
    registry.add(user, L"C\\1", {{L"SysVersion", L"3.11"}}, {{L"ExecutablePath", L"a"}});
    registry.add(user, L"D\\1", {{L"SysVersion", L"3.12"}}, {{L"ExecutablePath", L"b"}});
    for (const wchar_t* key :
         {L"Software\\Python\\C", L"Software\\Python\\C\\1", L"Software\\Python\\C\\1\\InstallPath"}) {
        registry.locked = key;
        EXPECT_EQ(found(), (Lines{"D 3.12 b"}));
    }
    registry.locked = L"Software\\Python";
    EXPECT_EQ(found(), Lines{});
}

TEST_F(RegistrySearch, PassesOverATagThatLeadsToNoInterpreter)
{
    registry.add(user, L"C\\1", {{L"SysVersion", L"3.11"}}, {});
    registry.add(user, L"C\\2", {}, {{L"", L""}});
    EXPECT_EQ(found(), Lines{});
    EXPECT_EQ(asked, Lines{});
}
