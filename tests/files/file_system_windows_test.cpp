// SPDX-License-Identifier: MIT
// What only Windows has of files: share modes, drives, streams, permissions, names that differ in
// letter case, paths that are too long for most programs.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "files/replace_file.h"
#include "files/windows_handle.h"
#include "files/windows_path.h"
#include "link.h"
#include "project_change.h"
#include "temporary_folder.h"
// Needs the types of the system's header.
#include <sddl.h>
#include <winioctl.h>

namespace files {

void MakeLink(const std::string& target, const std::string& path) {
  constexpr DWORD kWithoutPrivilege = 2;
  ASSERT_TRUE(::CreateSymbolicLinkW(os::SystemPath(path).c_str(), os::WideText(target)->c_str(),
                                    kWithoutPrivilege));
}

namespace {

FileSystem& System() { return RealFileSystem(); }

std::string TextRaised(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.what();
  }
  return "nothing was raised";
}

// Another program's open file.
os::Handle Hold(const std::string& path, DWORD share, DWORD access = GENERIC_READ) {
  os::Handle handle(::CreateFileW(os::SystemPath(path).c_str(), access, share, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(handle.valid()) << ::GetLastError();
  return handle;
}

TEST(WindowsPaths, AreSplitAndJoined) {
  struct Case {
    const char* path;
    const char* folder;
    const char* name;
    const char* joined;  // of folder and name
  };
  const Case cases[] = {
      {R"(C:\p\a.b)", R"(C:\p)", "a.b", R"(C:\p\a.b)"},
      {R"(C:\a)", R"(C:\)", "a", R"(C:\a)"},
      {R"(C:a)", "C:", "a", "C:a"},
      {R"(C:p\a)", R"(C:p)", "a", R"(C:p\a)"},
      {R"(C:\p/a)", R"(C:\p)", "a", R"(C:\p\a)"},
      {R"(\a)", R"(\)", "a", R"(\a)"},
      {R"(\\server\share\a)", R"(\\server\share\)", "a", R"(\\server\share\a)"},
      {R"(\\server\share\p\a)", R"(\\server\share\p)", "a", R"(\\server\share\p\a)"},
      {R"(\\?\C:\a)", R"(\\?\C:\)", "a", R"(\\?\C:\a)"},
      {"p/Füllstand.cls", "p", "Füllstand.cls", R"(p\Füllstand.cls)"},
      {"a", "", "a", "a"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(System().Folder(c.path), c.folder) << c.path;
    EXPECT_EQ(System().FileName(c.path), c.name) << c.path;
    EXPECT_EQ(System().Join(c.folder, c.name), c.joined) << c.path;
  }
  const std::string deep = R"(\\server\share\)" + std::string(300, 'x');
  EXPECT_EQ(os::Utf8Text(os::SystemPath(deep)), R"(\\?\UNC\)" + deep.substr(2));
  EXPECT_EQ(os::PlainPath(os::SystemPath(deep)), deep);
}

TEST(WindowsNames, ThatNoFileCanHaveAreRefused) {
  const TemporaryFolder folder;
  ReplaceFile(System(), folder / "a", "kept");
  struct Case {
    const char* name;
    ErrorKind kind;
  };
  const Case cases[] = {
      {"a:b", ErrorKind::kNotAFile},  {"CON", ErrorKind::kNotAFile}, {"new.", ErrorKind::kNotAFile},
      {"new ", ErrorKind::kNotAFile}, {"a*b", ErrorKind::kNotFound}, {"a?", ErrorKind::kNotFound},
      {"\xff", ErrorKind::kNotFound}, {"a|b", ErrorKind::kNotFound},
  };
  for (const Case& c : cases) {
    const std::string path = folder.path() + "\\" + c.name;
    EXPECT_EQ(KindRaised([&] { System().Open(path, OpenMode::kCreateNew); }), c.kind) << c.name;
    EXPECT_FALSE(System().Exists(path)) << c.name;
  }
  EXPECT_EQ(System().List(folder.path()).size(), 1u);
  EXPECT_EQ(ReadFile(System(), folder / "a"), "kept");
}

TEST(WindowsNames, AreOneFileInAnyLetterCase) {
  const TemporaryFolder folder;
  const std::string path = folder / "Größe.ovs";
  ReplaceFile(System(), path, "one");
  EXPECT_EQ(System().List(folder.path()).at(0).name, "Größe.ovs");
  const std::string other = folder / "GRÖßE.OVS";
  EXPECT_EQ(System().Stamp(other)->identity, System().Stamp(path)->identity);
  EXPECT_EQ(System().Canonical(other), System().Canonical(path));
  ReplaceFile(System(), other, "two");
  EXPECT_EQ(System().List(folder.path()).at(0).name, "Größe.ovs");
  EXPECT_EQ(ReadFile(System(), path), "two");
}

TEST(WindowsPaths, MayBeLong) {
  const TemporaryFolder folder;
  std::string deep = folder.path();
  for (int i = 0; i < 5; ++i) deep += "\\" + std::string(100, static_cast<char>('a' + i));
  System().CreateDirectories(deep);
  EXPECT_TRUE(System().IsDirectory(deep));
  const std::string file = System().Join(deep, "Plant.ovs");
  ReplaceFile(System(), file, "one");
  ReplaceFile(System(), file, "two");
  EXPECT_EQ(ReadFile(System(), file), "two");
  EXPECT_TRUE(System().IsWritable(file));
  EXPECT_EQ(System().Folder(System().Canonical(file)), System().Canonical(deep));
  EXPECT_EQ(System().List(deep).size(), 1u);
  System().Remove(file);
  while (deep != folder.path()) {
    System().Remove(deep);
    deep = System().Folder(deep);
  }
}

TEST(WindowsErrors, AreToldApart) {
  struct Case {
    DWORD code;
    ErrorKind kind;
  };
  const Case cases[] = {
      {ERROR_FILE_NOT_FOUND, ErrorKind::kNotFound},
      {ERROR_FILE_EXISTS, ErrorKind::kExists},
      {ERROR_NETWORK_ACCESS_DENIED, ErrorKind::kReadOnly},
      {ERROR_DELETE_PENDING, ErrorKind::kLocked},
      {ERROR_USER_MAPPED_FILE, ErrorKind::kLocked},
      {ERROR_DISK_FULL, ErrorKind::kFull},
      {ERROR_DIR_NOT_EMPTY, ErrorKind::kIo},
      {ERROR_BAD_NETPATH, ErrorKind::kIo},
      {12345, ErrorKind::kIo},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(KindRaised([&] { os::RaiseCode(c.code, "C:\\a", message::kCannotBeRead); }), c.kind)
        << c.code;
  }
  const TemporaryFolder folder;
  System().CreateDirectories(folder / "p");
  ReplaceFile(System(), folder / "p\\a", "");
  const std::string text = TextRaised([&] { System().Remove(folder / "p"); });
  EXPECT_NE(text.find("the folder is not empty"), std::string::npos) << text;
}

// A program that holds a file for a moment delays us, one that keeps it makes us give up in time.
TEST(WindowsSharing, ReplacesWhatIsHeldForAMoment) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  ReplaceFile(System(), path, "one");
  {
    os::Handle held = Hold(path, FILE_SHARE_READ);
    std::thread releases([&held] {
      std::this_thread::sleep_for(std::chrono::milliseconds(60));
      held = os::Handle(INVALID_HANDLE_VALUE);
    });
    ReplaceFile(System(), path, "two");
    releases.join();
  }
  EXPECT_EQ(ReadFile(System(), path), "two");
  const os::Handle held = Hold(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(KindRaised([&] { ReplaceFile(System(), path, "three"); }), ErrorKind::kLocked);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_EQ(ReadFile(System(), path), "two");
  EXPECT_EQ(System().List(folder.path()).size(), 1u) << "a temporary file was left";
}

TEST(WindowsSharing, OpensOnlyWhatOthersShare) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  ReplaceFile(System(), path, "one");
  {
    const os::Handle held = Hold(path, 0);
    EXPECT_EQ(KindRaised([&] { System().Open(path, OpenMode::kRead); }), ErrorKind::kLocked);
    EXPECT_TRUE(System().Exists(path));
    EXPECT_TRUE(System().IsWritable(path));
  }
  const os::Handle held = Hold(path, FILE_SHARE_READ);
  EXPECT_EQ(ReadFile(System(), path), "one");
  EXPECT_EQ(KindRaised([&] { System().Open(path, OpenMode::kReadWrite); }), ErrorKind::kLocked);
}

TEST(WindowsSharing, RemovesWhatIsOpen) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  ReplaceFile(System(), path, "one");
  const auto file = System().Open(path, OpenMode::kReadWrite);
  System().Remove(path);
  EXPECT_FALSE(System().Exists(path));
  System().Open(path, OpenMode::kCreateNew);
}

TEST(WindowsAttributes, OfAReplacedFileStay) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  const std::wstring name = os::SystemPath(path);
  ReplaceFile(System(), path, "one");
  ASSERT_TRUE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
  WIN32_FILE_ATTRIBUTE_DATA before, after;
  ::GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &before);
  ReplaceFile(System(), path, "two");
  ::GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &after);
  EXPECT_EQ(after.dwFileAttributes, before.dwFileAttributes);
  EXPECT_EQ(ReadFile(System(), path), "two");

  ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(System().IsWritable(path));
  EXPECT_EQ(KindRaised([&] { ReplaceFile(System(), path, "three"); }), ErrorKind::kReadOnly);
  EXPECT_EQ(KindRaised([&] { System().Open(path, OpenMode::kReadWrite); }), ErrorKind::kReadOnly);
  ReplaceFile(System(), folder / "b", "four");
  const std::string text = TextRaised([&] { System().Rename(folder / "b", path); });
  EXPECT_NE(text.find("it is write-protected"), std::string::npos) << text;
  EXPECT_EQ(KindRaised([&] { System().Remove(path); }), ErrorKind::kReadOnly);
  EXPECT_EQ(ReadFile(System(), path), "two");
  ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsAttributes, CreationTimeOfAReplacedFileStays) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  ReplaceFile(System(), path, "one");
  WIN32_FILE_ATTRIBUTE_DATA before, after;
  ::GetFileAttributesExW(os::SystemPath(path).c_str(), GetFileExInfoStandard, &before);
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  ReplaceFile(System(), path, "two");
  ::GetFileAttributesExW(os::SystemPath(path).c_str(), GetFileExInfoStandard, &after);
  EXPECT_EQ(::CompareFileTime(&after.ftCreationTime, &before.ftCreationTime), 0);
}

TEST(WindowsAttributes, StreamsOfAReplacedFileStay) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  ReplaceFile(System(), path, "one");
  const std::wstring stream = os::SystemPath(path) + L":note";
  {
    const os::Handle handle(
        ::CreateFileW(stream.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    DWORD count = 0;
    ASSERT_TRUE(::WriteFile(handle.get(), "kept", 4, &count, nullptr));
  }
  ReplaceFile(System(), path, "two");
  char text[8] = {};
  DWORD count = 0;
  const os::Handle handle(
      ::CreateFileW(stream.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(::ReadFile(handle.get(), text, sizeof text, &count, nullptr));
  EXPECT_STREQ(text, "kept");
}

// The permissions as text.
std::wstring PermissionsOf(const std::string& path) {
  std::vector<BYTE> descriptor(1 << 12);
  DWORD size = 0;
  LPWSTR text = nullptr;
  if (!::GetFileSecurityW(os::SystemPath(path).c_str(), DACL_SECURITY_INFORMATION,
                          descriptor.data(), static_cast<DWORD>(descriptor.size()), &size) ||
      !::ConvertSecurityDescriptorToStringSecurityDescriptorW(
          descriptor.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr)) {
    return L"none";
  }
  const std::wstring result = text;
  ::LocalFree(text);
  return result;
}

TEST(WindowsAttributes, PermissionsOfAReplacedFileStay) {
  const TemporaryFolder folder;
  const std::string path = folder / "a";
  ReplaceFile(System(), path, "one");
  const std::wstring usual = PermissionsOf(path);
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(
      L"D:P(A;;FA;;;BA)(A;;FA;;;CO)(A;;FR;;;BU)", SDDL_REVISION_1, &descriptor, nullptr));
  ASSERT_TRUE(
      ::SetFileSecurityW(os::SystemPath(path).c_str(), DACL_SECURITY_INFORMATION, descriptor));
  ::LocalFree(descriptor);
  const std::wstring own = PermissionsOf(path);
  ASSERT_NE(own, usual);
  ReplaceFile(System(), path, "two");
  EXPECT_EQ(PermissionsOf(path), own);
}

// A junction: a folder that leads to another one.
bool MakeJunction(const std::string& at, const std::string& to) {
  System().CreateDirectories(at);
  const std::wstring target = LR"(\??\)" + os::SystemPath(to);
  const std::size_t bytes = target.size() * sizeof(wchar_t);
  struct Header {
    DWORD tag;
    WORD size, reserved, name_offset, name_size, print_offset, print_size;
  };
  std::vector<std::byte> buffer(sizeof(Header) + bytes + 2 * sizeof(wchar_t));
  auto* header = reinterpret_cast<Header*>(buffer.data());
  header->tag = IO_REPARSE_TAG_MOUNT_POINT;
  header->size = static_cast<WORD>(buffer.size() - 8);
  header->name_size = static_cast<WORD>(bytes);
  header->print_offset = static_cast<WORD>(bytes + sizeof(wchar_t));
  target.copy(reinterpret_cast<wchar_t*>(header + 1), target.size());
  const os::Handle handle = os::OpenExisting(
      at, GENERIC_WRITE, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
  DWORD count = 0;
  return ::DeviceIoControl(handle.get(), FSCTL_SET_REPARSE_POINT, buffer.data(),
                           static_cast<DWORD>(buffer.size()), nullptr, 0, &count, nullptr) != 0;
}

TEST(WindowsLinks, JunctionsLeadToTheirFolder) {
  const TemporaryFolder folder;
  System().CreateDirectories(folder / "real");
  ReplaceFile(System(), folder / "real\\a", "one");
  ASSERT_TRUE(MakeJunction(folder / "link", folder / "real"));
  EXPECT_EQ(System().Canonical(folder / "link\\a"), System().Canonical(folder / "real\\a"));
  ReplaceFile(System(), folder / "link\\a", "two");
  EXPECT_EQ(ReadFile(System(), folder / "real\\a"), "two");
  for (const DirectoryEntry& entry : System().List(folder.path())) {
    EXPECT_TRUE(entry.is_directory) << entry.name;
    EXPECT_EQ(entry.is_link, entry.name == "link");
  }
  System().Remove(folder / "link");
  EXPECT_TRUE(System().Exists(folder / "real\\a"));
}

// The machine's own drive as others see it.
TEST(WindowsPaths, MayNameAShare) {
  const TemporaryFolder folder;
  std::string share = folder / "a";
  ASSERT_EQ(share[1], ':');
  share = R"(\\localhost\)" + share.substr(0, 1) + "$" + share.substr(2);
  ReplaceFile(System(), share, "one");
  ReplaceFile(System(), share, "two");
  EXPECT_EQ(ReadFile(System(), folder / "a"), "two");
  EXPECT_TRUE(System().Canonical(share).starts_with(R"(\\localhost\)"));
}

}  // namespace
}  // namespace files
