// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "files/memory_file_system.h"
#include "tests/jet/plant_tables.h"

// The files that the tests are run on: real ones of Access, where they are present, and one of our
// own engine that stands in for them.
namespace samples {

inline constexpr const char* kMade = "made.ovs";

// The real ones.
inline const std::vector<std::string>& Names() {
  static const std::vector<std::string> names = {"adox_jet4.mdb",
                                                 "compIndexTestV2000.mdb",
                                                 "delColTestV2000.mdb",
                                                 "delTestV2000.mdb",
                                                 "empty2000.mdb",
                                                 "indexTestV2000.mdb",
                                                 "overflowTestV2000.mdb",
                                                 "plant.ovs",
                                                 "test2V2000.mdb",
                                                 "testIndexPropertiesV2000.mdb",
                                                 "testUnicodeCompV2003.mdb",
                                                 "testV2003.mdb"};
  return names;
}

inline std::string Path(std::string_view name) { return OV_SAMPLES "/" + std::string(name); }

inline bool Present() { return files::RealFileSystem().Exists(Path("adox_jet4.mdb")); }

// The stand-in: rows that were moved and deleted, long values on one page and over several,
// indexes of several levels, and a project's table of aliases.
inline const std::string& Made() {
  static const std::string contents = [] {
    files::MemoryFileSystem system;
    {
      const auto database = jet::Database::Create(system, "/made.ovs");
      jet::Table& items = database->CreateTable(jet::ItemsSpec());
      jet::TableSpec spec = jet::ItemsSpec();
      spec.name = "TvbfAlias";
      spec.columns[1].name = spec.indexes[1].columns[0].column = "ItemID";
      spec.columns[2] = {"VBAlias", jet::ColumnType::kText, 0, false, true};
      jet::Table& aliases = database->CreateTable(spec);
      jet::Transaction transaction(*database);
      for (int i = 0; i < 400; ++i) {
        const std::string number = std::to_string(i);
        const std::size_t length = i % 50 == 0 ? 9000 : i % 9 == 0 ? 3000 : 20;
        const auto item = std::string(60, static_cast<char>('a' + i % 20)) + number;
        const jet::RowId row = jet::AddItem(items, item, std::string(length, 'n')).id;
        const std::string longer = std::string(200, 'm') + number;
        const jet::ColumnValue values[] = {{1, jet::Value::Text(longer)}};
        if (i % 7 == 0) items.Update(row, values);
        if (i % 11 == 0) items.Delete(row);
        jet::AddItem(aliases, "Tank" + number + ".Level", "Level" + number);
      }
      transaction.Commit();
    }
    return system.Get("/made.ovs");
  }();
  return contents;
}

inline std::string Contents(std::string_view name) {
  return name == kMade ? Made() : files::ReadFile(files::RealFileSystem(), Path(name));
}

// The stand-in, and the real ones where they are present.
inline std::vector<std::string> All() {
  std::vector<std::string> names = {kMade};
  if (Present()) names.insert(names.end(), Names().begin(), Names().end());
  return names;
}

// Those of a project.
inline std::vector<std::string> Projects() {
  return Present() ? std::vector<std::string>{kMade, "plant.ovs"} : std::vector<std::string>{kMade};
}

// Puts a copy of the file into memory, under "/" and its name, which is returned.
inline std::string Copy(files::MemoryFileSystem& system, std::string_view name) {
  std::string path = "/" + std::string(name);
  system.Put(path, Contents(name));
  return path;
}

}  // namespace samples

#define OV_NEED_SAMPLES() \
  if (!samples::Present()) GTEST_SKIP() << "no Access files in " OV_SAMPLES
