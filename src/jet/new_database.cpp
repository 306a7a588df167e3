// SPDX-License-Identifier: MIT
#include "jet/new_database.h"

#include <bit>
#include <chrono>
#include <cmath>
#include <cstring>
#include <ctime>
#include <span>
#include <vector>

#include "files/memory_file_system.h"
#include "jet/bytes.h"
#include "jet/catalog.h"
#include "jet/data_page.h"
#include "jet/definition_writer.h"
#include "jet/header_page.h"
#include "jet/index_page_edit.h"
#include "jet/session.h"
#include "jet/system_tables.h"
#include "jet/table_state.h"
#include "jet/usage_map_record.h"

namespace jet {
namespace {

constexpr const char* kScratchPath = "/new.mdb";

// The accounts below are valid only together with this creation date.
constexpr std::uint64_t kHeaderDate = 0x40E4AB3E3BD3853E;
constexpr std::uint32_t kHeaderDay = 0xA559;
constexpr std::uint32_t kHeaderBuild = 0x261C;
constexpr std::uint16_t kEngineAccount = 0x8965;
constexpr std::uint16_t kAdminAccount = 0x8B64;
constexpr std::uint16_t kUsersAccount = 0x8B65;
constexpr std::uint16_t kCreatorAccount = 0x8E65;

constexpr std::int32_t kRoot = 0x0F000000;
constexpr std::int32_t kDatabases = 0x0F000002;
constexpr std::int32_t kRelationshipsContainer = 0x0F000003;
constexpr std::int32_t kDatabaseObject = 0x10000000;

struct ObjectRow {
  std::int32_t id;
  std::int32_t parent;
  const char* name;
  ObjectType type;
  std::uint16_t owner;
};

constexpr ObjectRow kObjectRows[] = {
    {kTablesContainer, kRoot, "Tables", ObjectType::kContainer, kEngineAccount},
    {kDatabases, kRoot, "Databases", ObjectType::kContainer, kEngineAccount},
    {kRelationshipsContainer, kRoot, "Relationships", ObjectType::kContainer, kEngineAccount},
    {kDatabaseObject, kDatabases, "MSysDb", ObjectType::kDatabase, kAdminAccount},
    {2, kTablesContainer, "MSysObjects", ObjectType::kLocalTable, kEngineAccount},
    {3, kTablesContainer, "MSysACEs", ObjectType::kLocalTable, kEngineAccount},
    {4, kTablesContainer, "MSysQueries", ObjectType::kLocalTable, kEngineAccount},
    {5, kTablesContainer, "MSysRelationships", ObjectType::kLocalTable, kEngineAccount}};

struct AccessRow {
  std::int32_t object;
  std::uint16_t account;
  std::int32_t rights;
  bool inheritable;
};

constexpr AccessRow kAccessRows[] = {{2, kAdminAccount, 393216, false},
                                     {3, kAdminAccount, 393216, false},
                                     {4, kAdminAccount, 393216, false},
                                     {5, kAdminAccount, 917504, false},
                                     {kTablesContainer, kCreatorAccount, 983294, true},
                                     {kTablesContainer, kAdminAccount, 393217, false},
                                     {kRelationshipsContainer, kCreatorAccount, 983294, true},
                                     {kRelationshipsContainer, kAdminAccount, 393217, false},
                                     {kDatabases, kAdminAccount, 393216, false},
                                     {kDatabaseObject, kAdminAccount, 393230, false},
                                     {kDatabaseObject, kUsersAccount, 14, false},
                                     {4, kUsersAccount, 20, false},
                                     {5, kUsersAccount, 20, false},
                                     {2, kUsersAccount, 20, false},
                                     {kTablesContainer, kUsersAccount, 1048319, true},
                                     {kRelationshipsContainer, kUsersAccount, 1048575, true}};

void FillHeader(std::span<std::byte> page) {
  std::byte* p = page.data();
  Store32(p, 0x100);
  std::memcpy(p + 0x04, "Standard Jet DB", 16);
  Store32(p + 0x14, 1);
  Store32(p + kHeaderFreeMapOffset, RowId{1, 0}.Reference());
  Store32(p + kHeaderFreeMapOffset + 4, RowId{1, 1}.Reference());
  for (std::size_t i = 0; i < 4; ++i) {
    Store32(p + 0x20 + 4 * i, kObjectsDefinition + static_cast<PageNumber>(i));
  }
  Store16(p + 0x3C, 1252);
  for (std::size_t i = 0; i < 10; ++i) Store32(p + 0x42 + 4 * i, kHeaderDay);
  Store32(p + 0x6A, kHeaderBuild);
  Store32(p + 0x6E, 0x0409);
  Store64(p + 0x72, kHeaderDate);
  MaskHeader(page);
  Store32(p + 0x98, 0x654);
  std::memcpy(p + 0x9C, "4.0", 4);
}

void FillCounters(std::byte* header) {
  for (std::size_t i = 0; i < kUserCount; ++i) {
    Store16(header + kHeaderCountersOffset + 2 * i, i == 0 ? 0x0101 : 0x0100);
  }
}

// The map of free pages, in which all pages but the first are free, and the empty second map.
void FillFreeMap(std::byte* page) {
  InitDataPage(page, 1);
  std::vector<std::byte> map(kNewMapSize);
  std::fill(map.begin() + kMapHead, map.end(), std::byte{0xFF});
  for (std::size_t i = 0; i < kNewDatabasePages; ++i) {
    map[kMapHead + i / 8] &= ~std::byte{static_cast<std::uint8_t>(1u << (i % 8))};
  }
  AddRow(page, map, kSlotLive);
  AddRow(page, std::vector<std::byte>(kNewMapSize), kSlotLive);
}

// All pages up to the first rows.
std::string EmptyTables() {
  std::string image(kNewDatabasePages * kPageSize, '\0');
  const std::span<std::byte> bytes = std::as_writable_bytes(std::span(image));
  const auto page = [&](PageNumber n) { return bytes.data() + n * kPageSize; };
  FillHeader(bytes.first(kPageSize));
  FillFreeMap(page(1));
  InitDataPage(page(kSystemMapPage), 0);
  const std::vector<std::byte> map(kNewMapSize);
  for (int i = 0; i < kSystemMapRows; ++i) AddRow(page(kSystemMapPage), map, kSlotLive);
  for (const TableDefinition& table : SystemTables()) {
    const std::vector<std::byte> definition = EncodeDefinition(table);
    std::memcpy(page(table.page), definition.data(), definition.size());
    Store16(page(table.page) + 2, static_cast<std::uint16_t>(kPageSize - 8 - definition.size()));
    for (const PhysicalIndex& index : table.physical) {
      InitIndexPage(page(index.root), PageType::kIndexLeaf, table.page, 0);
      const Slot slot = GetSlot(page(kSystemMapPage), index.usage_map.slot);
      std::byte* bits = page(kSystemMapPage) + slot.begin + kMapHead;
      bits[index.root / 8] |= std::byte{static_cast<std::uint8_t>(1u << (index.root % 8))};
    }
  }
  return image;
}

std::span<const std::byte> AccountBytes(const std::uint16_t& account) {
  static_assert(std::endian::native == std::endian::little);
  return std::as_bytes(std::span(&account, 1));
}

void AddObjects(Session& session, double created) {
  Catalog catalog(session);
  const auto at = [&](const char* name) { return catalog.Position(name); };
  for (const ObjectRow& row : kObjectRows) {
    const ColumnValue values[] = {
        {at("Id"), Value::Integer(row.id)},
        {at("ParentId"), Value::Integer(row.parent)},
        {at("Name"), Value::Text(row.name)},
        {at("Type"), Value::Integer(static_cast<std::int32_t>(row.type))},
        {at("DateCreate"), Value::Date(created)},
        {at("DateUpdate"), Value::Date(created)},
        {at("Flags"), Value::Integer(static_cast<std::int32_t>(kBuiltInObject))},
        {at("Owner"), Value::Binary(AccountBytes(row.owner))}};
    catalog.table().writer().Insert(values);
  }
}

void AddAccess(Session& session) {
  TableState table(session, "MSysACEs", 3);
  for (const AccessRow& row : kAccessRows) {
    // In the order of the definition: ACM, FInheritable, ObjectId, SID.
    const ColumnValue values[] = {{0, Value::Integer(row.rights)},
                                  {1, Value::Boolean(row.inheritable)},
                                  {2, Value::Integer(row.object)},
                                  {3, Value::Binary(AccountBytes(row.account))}};
    table.writer().Insert(values);
  }
}

}  // namespace

std::string NewDatabase(double created) {
  files::MemoryFileSystem scratch;
  scratch.Put(kScratchPath, EmptyTables());
  {
    Session session(scratch, kScratchPath, OpenOptions());
    session.Begin();
    AddObjects(session, created);
    AddAccess(session);
    session.Commit();
  }
  std::string image = scratch.Get(kScratchPath);
  FillCounters(std::as_writable_bytes(std::span(image)).data());
  return image;
}

double DateNow() {
  constexpr double kDaysTo1970 = 25569;
  constexpr double kSecondsPerDay = 86400;
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local = {};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  const auto days = std::chrono::sys_days(std::chrono::year(local.tm_year + 1900) /
                                          (local.tm_mon + 1) / local.tm_mday)
                        .time_since_epoch()
                        .count();
  const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return kDaysTo1970 + static_cast<double>(days) + seconds / kSecondsPerDay;
}

}  // namespace jet
