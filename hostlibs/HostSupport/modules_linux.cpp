#include "HostSupport/modules.h"

#include <link.h>
#include <string_view>

namespace {

int addModule(dl_phdr_info* module, std::size_t, void* names)
{
    const std::string_view path = module->dlpi_name ? module->dlpi_name : "";
    if (!path.empty()) // the program itself has no name
        static_cast<std::vector<std::string>*>(names)->emplace_back(path.substr(path.rfind('/') + 1));
    return 0;
}

} // namespace

std::vector<std::string> sp_GetLoadedModules()
{
    std::vector<std::string> names;
    ::dl_iterate_phdr(addModule, &names);
    return names;
}
