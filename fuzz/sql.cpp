// SPDX-License-Identifier: MIT
// Any text as query, filter and search criterion over a small database: answered or refused.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "files/memory_file_system.h"
#include "platform/ado.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/schema.h"

namespace {

class Project {
 public:
  Project() : connection_(system_) {
    connection_.Create(store::ProjectConnectionString("/p.ovs"));
    store::CompleteSchema(connection_);
    for (const char* name : {"A", "b", "O'Ring", "Straße"}) {
      Open("TvbfAlias")->AddNew({"ItemID", "VBAlias"}, {"Item", name});
      Open("TvbfFormulas")->AddNew({"Name", "ProgID", "Type"}, {name, "P.C", 6});
    }
    for (std::int32_t i = 1; i <= 4; ++i) {
      Open("TvbfParams")->AddNew({"ParentID", "AliasID", "In"}, {i, 5 - i, i % 2 == 0});
    }
  }

  std::shared_ptr<platform::Recordset> Open(std::string_view source) {
    auto rows = connection_.CreateRecordset();
    rows->SetSource(source);
    rows->SetLockType(platform::LockType::kOptimistic);
    rows->SetParameters({1, "A"});
    rows->Open();
    return rows;
  }

 private:
  files::MemoryFileSystem system_;
  recordset::JetConnection connection_;
};

template <class Action>
void Try(Action action) {
  try {
    action();
  } catch (const platform::Error&) {
    // Refused.
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Project project;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Try([&] {
    const auto rows = project.Open(text);
    if (!rows->EOF_()) rows->GetRows(-1, {});
  });
  const auto aliases = project.Open("TvbfAlias");
  Try([&] { aliases->Find(text); });
  Try([&] { aliases->SetFilter(text); });
  return 0;
}
