#include "platform/message_box.h"

#include "platform/windows/windows.h"

namespace orv::platform {

void presentMessage(MessageKind kind, const wchar_t* title, const wchar_t* text) {
    UINT icon = MB_ICONINFORMATION;
    if (kind == MessageKind::kWarning) icon = MB_ICONWARNING;
    if (kind == MessageKind::kError) icon = MB_ICONERROR;
    MessageBoxW(GetActiveWindow(), text, title, MB_OK | icon);
}

}  // namespace orv::platform
