#include "orv/messages.h"

#include <atomic>

#include "platform/message_box.h"

namespace orv {
namespace {

constinit std::atomic<MessagePresenter> hostPresenter{nullptr};

}  // namespace

MessagePresenter setMessagePresenter(MessagePresenter presenter) { return hostPresenter.exchange(presenter); }

void showMessage(MessageKind kind, const wchar_t* title, const wchar_t* text) {
    const MessagePresenter chosen = hostPresenter.load();
    const MessagePresenter present = chosen != nullptr ? chosen : platform::presentMessage;
    present(kind, title != nullptr ? title : L"", text != nullptr ? text : L"");
}

}  // namespace orv
