// SPDX-License-Identifier: MIT
// Code that an environment has open is taken back there, and in the file when it has closed it.
#include "history/open_code.h"
#include "tests/history/plant.h"

namespace history {
namespace {

// A module that shows what stands below the attributes of its file.
class OpenModule : public OpenCode {
 public:
  OpenModule(std::string path, std::string text)
      : path_(std::move(path)), before_(text), text_(std::move(text)) {}

  std::vector<files::FileChange> Changes() override { return {{path_, before_, text_}}; }
  std::optional<std::string> Read(const std::string& path) override {
    return path == path_ ? std::optional(text_) : std::nullopt;
  }
  void Write(const std::string&, const std::string& contents) override {
    before_ = std::exchange(text_, contents);
  }
  const std::string& text() const { return text_; }

 private:
  std::string path_, before_, text_;
};

std::string VisibleOf(const std::string& file) { return file.substr(file.find("Option Explicit")); }

TEST(OpenCode, IsTakenBackWhereItIsOpen) {
  files::MemoryFileSystem system;
  PutPlant(system, {{"CPump", "Option Explicit\r\n\r\nPublic Sub Own()\r\nEnd Sub\r\n"}});
  Program program(system);
  const std::string path = support::ClassPath("CPump");
  const std::string before = system.Get(path);
  program.AddFormula("Fill");
  const std::string after = system.Get(path);
  ASSERT_NE(before, after);

  OpenModule module(path, VisibleOf(after));
  program.project().history().RecordCodeOf(&module);
  EXPECT_TRUE(program.Undo().success());
  EXPECT_EQ(module.text(), VisibleOf(before));
  EXPECT_EQ(system.Get(path), after) << "the environment writes its files itself";
  EXPECT_TRUE(program.Redo().success());
  EXPECT_EQ(module.text(), VisibleOf(after));

  program.project().history().RecordCodeOf(nullptr);
  EXPECT_TRUE(program.Undo().success());
  EXPECT_EQ(system.Get(path), before) << "a record of what was visible is undone in the file";
}

}  // namespace
}  // namespace history
