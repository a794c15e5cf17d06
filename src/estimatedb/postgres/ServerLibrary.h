#pragma once

#include <libpq-fe.h>

namespace lantos {

// What is used of libpq. It is loaded when the first server is asked for: it and what it needs take longer to load than
// all else of a start, and who keeps the estimates in a file needs none of it.
struct ServerLibrary {
  decltype(&PQclear) clear;
  decltype(&PQcmdStatus) cmdStatus;
  decltype(&PQconnectPoll) connectPoll;
  decltype(&PQconnectStartParams) connectStartParams;
  decltype(&PQconnectionNeedsPassword) connectionNeedsPassword;
  decltype(&PQconninfoFree) conninfoFree;
  decltype(&PQconninfoParse) conninfoParse;
  decltype(&PQconsumeInput) consumeInput;
  decltype(&PQenterPipelineMode) enterPipelineMode;
  decltype(&PQerrorMessage) errorMessage;
  decltype(&PQfinish) finish;
  decltype(&PQflush) flush;
  decltype(&PQfname) fname;
  decltype(&PQfreemem) freemem;
  decltype(&PQftype) ftype;
  decltype(&PQgetResult) getResult;
  decltype(&PQgetisnull) getisnull;
  decltype(&PQgetlength) getlength;
  decltype(&PQgetvalue) getvalue;
  decltype(&PQisBusy) isBusy;
  decltype(&PQlibVersion) libVersion;
  decltype(&PQnfields) nfields;
  decltype(&PQnotifies) notifies;
  decltype(&PQntuples) ntuples;
  decltype(&PQpipelineSync) pipelineSync;
  decltype(&PQresultErrorField) resultErrorField;
  decltype(&PQresultErrorMessage) resultErrorMessage;
  decltype(&PQresultStatus) resultStatus;
  decltype(&PQsendPrepare) sendPrepare;
  decltype(&PQsendQuery) sendQuery;
  decltype(&PQsendQueryParams) sendQueryParams;
  decltype(&PQsendQueryPrepared) sendQueryPrepared;
  decltype(&PQserverVersion) serverVersion;
  decltype(&PQsetErrorVerbosity) setErrorVerbosity;
  decltype(&PQsetNoticeReceiver) setNoticeReceiver;
  decltype(&PQsetnonblocking) setnonblocking;
  decltype(&PQsocket) socket;
  decltype(&PQstatus) status;
};

// Throws DatabaseError, whose text is for the person, where it isn't installed.
const ServerLibrary& Pq();

}  // namespace lantos
