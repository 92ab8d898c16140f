// SPDX-License-Identifier: MIT
#include <corvane/runtime/error_handler.h>

#include <iostream>

namespace corvane {

namespace {

ErrorHandler& installedHandler() {
  static ErrorHandler handler;
  return handler;
}

void writeToErrorStream(const RuntimeError& e) {
  std::cerr << "Run-time error " << e.number() << ": " << e.description() << " (source: "
            << (e.source().empty() ? "unknown" : e.source()) << ")" << std::endl;
}

}  // namespace

void setErrorHandler(ErrorHandler handler) { installedHandler() = std::move(handler); }

void reportError(const RuntimeError& error) {
  // A copy, so that a handler may replace itself while it runs.
  ErrorHandler handler = installedHandler();
  if (!handler) {
    writeToErrorStream(error);
    return;
  }
  try {
    handler(error);
  } catch (const RuntimeError& e) {
    writeToErrorStream(error);
    writeToErrorStream(e);
  } catch (const std::exception& e) {
    writeToErrorStream(error);
    writeToErrorStream(RuntimeError(err::InternalError, e.what()));
  }
}

bool runReportingErrors(const std::function<void()>& delivery) {
  try {
    delivery();
    return true;
  } catch (const RuntimeError& e) {
    reportError(e);
  } catch (const std::exception& e) {
    reportError(RuntimeError(err::InternalError, e.what()));
  }
  return false;
}

}  // namespace corvane
