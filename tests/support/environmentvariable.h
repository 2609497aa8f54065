#ifndef ENVIRONMENTVARIABLE_H
#define ENVIRONMENTVARIABLE_H

#include <cstdlib>
#include <optional>
#include <string>

/// While it lives, a variable of the environment may be changed: it comes back as it was.
class EnvironmentVariable
{
public:
    explicit EnvironmentVariable(const char* name) : m_name(name)
    {
        if (const char* value = std::getenv(name))
            m_before = value;
    }
    EnvironmentVariable(const char* name, const std::string& value) : EnvironmentVariable(name)
    {
        ::setenv(name, value.c_str(), 1);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable()
    {
        if (m_before)
            ::setenv(m_name, m_before->c_str(), 1);
        else
            ::unsetenv(m_name);
    }

    std::string value() const
    {
        const char* value = std::getenv(m_name);
        return value ? value : "";
    }

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

#endif
