// SPDX-License-Identifier: MIT
#include "com/failure.h"

#include <exception>
#include <new>
#include <stdexcept>

#include "com/value.h"
#include "files/error.h"

namespace com {

namespace {

constexpr std::uint32_t kControlErrors = 0x800A0000;  // those of Visual Basic and its objects

HRESULT AsResult(std::uint32_t bits) { return static_cast<HRESULT>(bits); }

std::string SystemText(HRESULT result) {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string said = length ? Utf8({text, length}) : std::string();
  LocalFree(text);
  said.resize(said.find_last_not_of("\r\n ") + 1);
  return said;
}

std::string Hexadecimal(HRESULT result) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "0x";
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += kDigits[(static_cast<std::uint32_t>(result) >> shift) & 15];
  }
  return text;
}

messages::Message Describe(HRESULT result, const std::string& description) {
  std::string said = description.empty() ? SystemText(result) : description;
  if (said.empty()) said = Hexadecimal(result);
  return messages::Message::Verbatim(said);
}

platform::ErrorKind KindOf(HRESULT result) {
  switch (result) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
    case REGDB_E_CLASSNOTREG:
    case CO_E_CLASSSTRING:
      return platform::ErrorKind::kNotFound;
    default:
      return platform::ErrorKind::kRefused;
  }
}

HRESULT Tell(EXCEPINFO* details, const wchar_t* source, HRESULT result,
             const std::string& sentence) {
  if (!details) return result;
  *details = {};
  details->scode = result;
  details->bstrSource = SysAllocString(source);
  details->bstrDescription = NewText(sentence);
  return DISP_E_EXCEPTION;
}

}  // namespace

Failure::Failure(HRESULT result, const std::string& description)
    : platform::Error(KindOf(result), NumberOf(result), Describe(result, description)),
      result_(result) {}

void Require(HRESULT result) {
  if (FAILED(result)) throw Failure(result, "");
}

HRESULT ResultOf(std::int32_t number) {
  if (number < 0) return number;
  return AsResult(kControlErrors | (static_cast<std::uint32_t>(number) & 0xFFFF));
}

std::int32_t NumberOf(HRESULT result) {
  const auto bits = static_cast<std::uint32_t>(result);
  return (bits & 0xFFFF0000) == kControlErrors ? static_cast<std::int32_t>(bits & 0xFFFF) : result;
}

HRESULT ResultOfException(EXCEPINFO* details, const wchar_t* source) noexcept try {
  try {
    throw;
  } catch (const Failure& error) {
    return Tell(details, source, error.result(), error.description());
  } catch (const platform::Error& error) {
    return Tell(details, source, ResultOf(error.number()), error.description());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    return Tell(details, source, E_FAIL, error.what());
  } catch (...) {
    return E_UNEXPECTED;
  }
} catch (...) {
  return E_OUTOFMEMORY;
}

}  // namespace com
