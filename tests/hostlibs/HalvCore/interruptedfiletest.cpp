// A signal that ends the process in the middle of what must be done together.

#include "HalvCore/temporaryfile.h"
#include "HalvCore/wholefile.h"
#include "support/process.h"
#include "support/temporaryfolder.h"
#include "systemcalls.h"

#include <csignal>
#include <fstream>

using namespace Halvorin::System;
namespace fs = std::filesystem;

namespace {

void removeFilesAndEnd(int signal)
{
    TemporaryFile::removeAll();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

TEST(InterruptedFiles, AreAllReplacedOnceTheFirstOneIs)
{
    const TemporaryFolder folder;
    const fs::path first = folder.write("first", "old");
    const fs::path second = folder.write("second", "old");
    EXPECT_EQ(runInChild([&] {
                  std::signal(SIGTERM, removeFilesAndEnd);
                  systemCallHooks().afterExchange = [] { std::raise(SIGTERM); };
                  static_cast<void>(writeWholeFiles({{first, "new"}, {second, "new"}}));
                  return 0;
              }),
              -SIGTERM);
    EXPECT_EQ(folder.read("first"), "new");
    EXPECT_EQ(folder.read("second"), "new");
}

TEST(InterruptedFiles, AreAllPutBackWhenALaterOneFails)
{
    const TemporaryFolder folder;
    const fs::path first = folder.write("first", "old");
    fs::create_directory(folder / "away");
    EXPECT_EQ(runInChild([&] {
                  std::signal(SIGTERM, removeFilesAndEnd);
                  systemCallHooks().afterExchange = [&] {
                      systemCallHooks().afterExchange = {};
                      std::raise(SIGTERM);
                      fs::remove_all(folder / "away");
                  };
                  static_cast<void>(writeWholeFiles({{first, "new"}, {folder / "away/second", "new"}}));
                  return 0;
              }),
              -SIGTERM);
    EXPECT_EQ(folder.read("first"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST(InterruptedFiles, OfSomebodyElseStay)
{
    const TemporaryFolder folder;
    EXPECT_EQ(runInChild([&] {
                  std::signal(SIGTERM, removeFilesAndEnd);
                  systemCallHooks().beforeNewFile = [](const std::string& path) {
                      systemCallHooks().beforeNewFile = {};
                      std::ofstream(path) << "of somebody else";
                      std::raise(SIGTERM);
                  };
                  const TemporaryFile file(folder / "a-", ".tmp", 0600);
                  return 0;
              }),
              -SIGTERM);
    ASSERT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
    const fs::path left = *fs::directory_iterator(folder.path());
    EXPECT_EQ(folder.read(left.filename()), "of somebody else");
}
