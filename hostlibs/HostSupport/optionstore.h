#ifndef HOSTSUPPORT_OPTIONSTORE_H
#define HOSTSUPPORT_OPTIONSTORE_H

#include "HalvCore/filepath.h"
#include "HostSupport/hostsupportexport.h"

#include <memory>
#include <optional>
#include <string>

namespace HostSupport {

/// Where options are kept: an INI file in the user's configuration folder, or the file that the program
/// chose, and above it values that hold for this run only. Code of the library uses options.h. GUI thread
/// only.
class HOSTSUPPORT_EXPORT OptionStore
{
public:
    static OptionStore& instance();

    OptionStore(const OptionStore&) = delete;
    OptionStore& operator=(const OptionStore&) = delete;

    /// "halvorin/halvorin.ini" in the user's configuration folder. One that cannot be read is left alone: a
    /// warning on the channel "settings" says so, and options have their defaults.
    static Halvorin::System::FilePath defaultFile();

    /// Uses another file from now on; it need not exist yet. Values of this run stay.
    /// @throws Halvorin::System::Exception when there is something that cannot be read as options.
    void useFile(const Halvorin::System::FilePath& path);

    /// Sets a value for this run only.
    void setForThisRun(const std::string& name, std::string value);
    void forgetThisRun();

    /// The value for this run, else that of the file.
    std::optional<std::string> stored(const std::string& name) const;

    /// stored(), else the registered default.
    std::optional<std::string> value(const std::string& name) const;

    /// Writes to the file, through a temporary one; the value for this run is dropped. When the value is
    /// another one than before, mirrors and actions of the option follow.
    /// False, with a warning on the channel "settings", when the file cannot be written; the value then
    /// holds for this run.
    bool write(const std::string& name, const std::string& value);

private:
    OptionStore();
    ~OptionStore();

    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace HostSupport

#endif
