// Where the library's message boxes go: through one presenter that a host can replace.
//
// By default Windows shows a modal box and other systems write one line to standard error. A host without a desktop, or
// a test, sets its own presenter; it is process-wide and may be called from any thread.
#pragma once

#include "orv/export.h"

namespace orv {

enum class MessageKind { kInformation, kWarning, kError };

/// Receives title and text, both never null, as they are to be shown.
using MessagePresenter = void (*)(MessageKind kind, const wchar_t* title, const wchar_t* text);

/// Sets the presenter (null: the default one) and returns the one before (null: the default one).
ORV_API MessagePresenter setMessagePresenter(MessagePresenter presenter);

/// Shows a message. Null texts count as "".
ORV_API void showMessage(MessageKind kind, const wchar_t* title, const wchar_t* text);

}  // namespace orv
