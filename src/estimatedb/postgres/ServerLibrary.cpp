#include "estimatedb/postgres/ServerLibrary.h"

#include <dlfcn.h>
#include <fmt/core.h>

#include "estimatedb/engine/DatabaseError.h"

namespace lantos {

namespace {

// Looked for where the system keeps its libraries, never in the shop's directory.
constexpr const char* kName = "libpq.so.5";

[[noreturn]] void Refuse(const char* reason) {
  const std::string words = fmt::format(
      "The library that speaks with database servers, \"{}\", isn't installed on this machine, or is too old. Install "
      "the "
      "package libpq5, version 14 or later.",
      kName);
  throw DatabaseError(fmt::format("{}\n\n{}", words, reason == nullptr ? "" : reason), DatabaseErrorKind::Unreachable,
                      0, words);
}

template <class Function>
void Take(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  if (function == nullptr) Refuse(::dlerror());
}

// The connection as such.
void TakeConnecting(void* library, ServerLibrary& calls) {
  Take(library, "PQconnectPoll", calls.connectPoll);
  Take(library, "PQconnectStartParams", calls.connectStartParams);
  Take(library, "PQconnectionNeedsPassword", calls.connectionNeedsPassword);
  Take(library, "PQconninfoFree", calls.conninfoFree);
  Take(library, "PQconninfoParse", calls.conninfoParse);
  Take(library, "PQenterPipelineMode", calls.enterPipelineMode);
  Take(library, "PQerrorMessage", calls.errorMessage);
  Take(library, "PQfinish", calls.finish);
  Take(library, "PQserverVersion", calls.serverVersion);
  Take(library, "PQsetErrorVerbosity", calls.setErrorVerbosity);
  Take(library, "PQsetNoticeReceiver", calls.setNoticeReceiver);
  Take(library, "PQsetnonblocking", calls.setnonblocking);
  Take(library, "PQsocket", calls.socket);
  Take(library, "PQstatus", calls.status);
}

// What is asked over it.
void TakeAsking(void* library, ServerLibrary& calls) {
  Take(library, "PQclear", calls.clear);
  Take(library, "PQcmdStatus", calls.cmdStatus);
  Take(library, "PQconsumeInput", calls.consumeInput);
  Take(library, "PQflush", calls.flush);
  Take(library, "PQfname", calls.fname);
  Take(library, "PQfreemem", calls.freemem);
  Take(library, "PQftype", calls.ftype);
  Take(library, "PQgetResult", calls.getResult);
  Take(library, "PQgetisnull", calls.getisnull);
  Take(library, "PQgetlength", calls.getlength);
  Take(library, "PQgetvalue", calls.getvalue);
  Take(library, "PQisBusy", calls.isBusy);
  Take(library, "PQlibVersion", calls.libVersion);
  Take(library, "PQnfields", calls.nfields);
  Take(library, "PQnotifies", calls.notifies);
  Take(library, "PQntuples", calls.ntuples);
  Take(library, "PQpipelineSync", calls.pipelineSync);
  Take(library, "PQresultErrorField", calls.resultErrorField);
  Take(library, "PQresultErrorMessage", calls.resultErrorMessage);
  Take(library, "PQresultStatus", calls.resultStatus);
  Take(library, "PQsendPrepare", calls.sendPrepare);
  Take(library, "PQsendQuery", calls.sendQuery);
  Take(library, "PQsendQueryParams", calls.sendQueryParams);
  Take(library, "PQsendQueryPrepared", calls.sendQueryPrepared);
}

ServerLibrary Load() {
  void* const library = ::dlopen(kName, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) Refuse(::dlerror());
  ServerLibrary calls{};
  TakeConnecting(library, calls);
  TakeAsking(library, calls);
  return calls;
}

}  // namespace

const ServerLibrary& Pq() {
  static const ServerLibrary library = Load();
  return library;
}

}  // namespace lantos
