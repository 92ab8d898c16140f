// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <functional>

#include <corvane/runtime/runtime_error.h>

// The application's error handler: where an error goes that nothing caught, such as one raised
// by a window procedure or an event handler while the message loop delivers a message. The loop
// hands it over and goes on with the next message.
namespace corvane {

using ErrorHandler = std::function<void(const RuntimeError&)>;

// Installs a host's own handler; an empty one restores the default, which writes the error's
// number, description and source to the error stream.
CORVANE_API void setErrorHandler(ErrorHandler handler);

// Passes an uncaught error to the installed handler. A handler that throws in turn is not
// allowed to end the loop: its own error goes to the default handler.
CORVANE_API void reportError(const RuntimeError& error);

// Runs one delivery of the message loop; an error it raises goes to reportError, any other C++
// exception too, as error 51 (internal error). Returns false when the delivery failed.
CORVANE_API bool runReportingErrors(const std::function<void()>& delivery);

}  // namespace corvane
