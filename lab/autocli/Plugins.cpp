#include "autocli/Plugins.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <string>
#include <vector>

#include "baselibs/HostError.h"

namespace AutoCliProgram {

namespace fs = std::filesystem;
using BaseLibs::HostError;

namespace {

[[noreturn]] void Refuse(const fs::path& plugin, const std::string& reason) {
  throw HostError("the plug-in \"" + plugin.string() + "\" cannot be loaded: " + reason);
}

/// Returns null when the library exports no function of that name.
void* FindFunction(void* library, const char* name) {
  void* const address = dlsym(library, name);
  Dl_info info;
  void* entry = nullptr;
  const bool known = address != nullptr && dladdr1(address, &info, &entry, RTLD_DL_SYMENT) != 0;
  const auto* const symbol = static_cast<const ElfW(Sym)*>(entry);
  return known && symbol != nullptr && ELF64_ST_TYPE(symbol->st_info) == STT_FUNC ? address
                                                                                  : nullptr;
}

}  // namespace

std::vector<fs::path> FindPlugins(const fs::path& directory) {
  std::vector<fs::path> plugins;
  try {
    for (const auto& entry : fs::directory_iterator(directory)) {
      if (entry.path().extension() == ".so") plugins.push_back(entry.path());
    }
  } catch (const fs::filesystem_error& error) {
    throw HostError("the plug-in directory \"" + directory.string() +
                    "\" cannot be read: " + error.code().message());
  }
  if (plugins.empty()) throw HostError("there is no plug-in in \"" + directory.string() + "\"");
  std::ranges::sort(plugins);
  return plugins;
}

void LoadPlugin(const fs::path& plugin, const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  std::error_code ignored;
  const fs::file_status status = fs::status(plugin, ignored);
  // Opening a FIFO would wait for a writer.
  if (fs::exists(status) && !fs::is_regular_file(status))
    Refuse(plugin, "it is not a regular file");
  // The tree refers to the plug-in, which must stay loaded even if it closes itself.
  void* const handle = dlopen(plugin.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
  if (handle == nullptr) Refuse(plugin, dlerror());
  void* const entry = FindFunction(handle, "AutoCli_RegisterNamespaces");
  if (entry == nullptr) Refuse(plugin, "it has no function AutoCli_RegisterNamespaces");
  try {
    reinterpret_cast<decltype(&AutoCli_RegisterNamespaces)>(entry)(root);
  } catch (const std::exception& error) {
    Refuse(plugin, error.what());
  } catch (...) {
    Refuse(plugin, "it threw an object that is not a std::exception");
  }
}

}  // namespace AutoCliProgram
