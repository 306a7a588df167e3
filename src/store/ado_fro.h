// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ado.h"

namespace store {

enum class Access { kRead, kReadWrite };

// The connection string for a project database, by default as the data environment opens it.
std::string ProjectConnectionString(std::string_view path, Access access = Access::kReadWrite);

// The data environment: the connection to the project database and the recordsets of its commands.
// There is one in the process. Recordset "rs" + command is made closed, with the command's
// settings, when it is first asked for; it is opened and closed by the record helpers.
class ADOFRO {
 public:
  using ConnectionFactory = std::function<std::shared_ptr<platform::Connection>()>;

  // Where the instance gets its connection from. Set once by the program, before Instance.
  static void SetConnectionFactory(ConnectionFactory factory);
  // The instance, made (with a closed connection) when there is none.
  static ADOFRO& Instance();
  static bool Exists();
  // Closes what is open and destroys the instance. The next use makes a new one.
  static void Drop();

  ~ADOFRO();
  ADOFRO(const ADOFRO&) = delete;
  ADOFRO& operator=(const ADOFRO&) = delete;

  const std::shared_ptr<platform::Connection>& cnnFormulas() const { return connection_; }

  // The working recordsets of the store.
  const std::shared_ptr<platform::Recordset>& rsvbAlias();
  const std::shared_ptr<platform::Recordset>& rsParams();
  const std::shared_ptr<platform::Recordset>& rsFormulas();
  // Those that the grids show. The parameter of rstabParams is the formula's ID.
  const std::shared_ptr<platform::Recordset>& rstabvbAlias();
  const std::shared_ptr<platform::Recordset>& rstabParams();

  // Closes every open recordset of the connection, without saving, and the connection.
  void Close();

 private:
  explicit ADOFRO(std::shared_ptr<platform::Connection> connection);

  const std::shared_ptr<platform::Recordset>& Command(
      std::shared_ptr<platform::Recordset>& recordset, std::string_view source,
      platform::CommandType type);

  std::shared_ptr<platform::Connection> connection_;
  std::shared_ptr<platform::Recordset> vb_alias_;
  std::shared_ptr<platform::Recordset> tab_vb_alias_;
  std::shared_ptr<platform::Recordset> params_;
  std::shared_ptr<platform::Recordset> formulas_;
  std::shared_ptr<platform::Recordset> tab_params_;
};

}  // namespace store
