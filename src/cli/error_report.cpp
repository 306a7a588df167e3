// SPDX-License-Identifier: MIT
#include "cli/error_report.h"

#include "cli/command.h"
#include "cli/invocation.h"
#include "files/error.h"
#include "jet/error.h"
#include "messages/error.h"
#include "platform/error.h"

namespace cli {

namespace {

// A request that the database refuses is no trouble with its file.
ExitCode CodeOf(jet::ErrorKind kind) {
  switch (kind) {
    case jet::ErrorKind::kDuplicate:
    case jet::ErrorKind::kRequired:
    case jet::ErrorKind::kInvalid:
    case jet::ErrorKind::kNotFound:
    case jet::ErrorKind::kExists:
      return kRefused;
    default:
      return kFile;
  }
}

}  // namespace

void ReportError(Console& console, const texts::TextTable& texts, const std::string& text) {
  console.err << texts.Text(kTextError, {{"<Text>", text}}) << '\n';
}

int ReportException(Console& console, const texts::TextTable& texts, std::exception_ptr error) {
  try {
    std::rethrow_exception(std::move(error));
  } catch (const CommandError& refused) {
    const bool interrupted = refused.code() == kInterrupted;
    ReportError(console, texts, interrupted ? texts.Text(kTextInterrupted) : refused.what());
    return refused.code();
  } catch (const platform::Error& failed) {
    ReportError(console, texts, texts.Sentence(failed));
    return failed.kind() == platform::ErrorKind::kIo ? kFile : kRefused;
  } catch (const jet::Error& failed) {
    ReportError(console, texts, texts.Sentence(failed));
    return CodeOf(failed.kind());
  } catch (const files::Error& failed) {
    ReportError(console, texts, texts.Sentence(failed));
    return kFile;
  } catch (const messages::Error& refused) {
    ReportError(console, texts, texts.Sentence(refused));
    return kRefused;
  } catch (const std::exception& failed) {
    ReportError(console, texts, texts.Text(kTextInternal, {{"<Text>", texts.Sentence(failed)}}));
    return kFile;
  } catch (...) {
    ReportError(console, texts, texts.Text(kTextInternal, {{"<Text>", "?"}}));
    return kFile;
  }
}

}  // namespace cli
