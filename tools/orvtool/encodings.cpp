#include "encodings.h"

#include <charconv>

namespace orvtool {
namespace {

constexpr unsigned kLargestPage = 65535;
constexpr TextForm kForms[] = {
    {"utf8", true, kUtf8Page},         {"utf8-bom", true, kUtf8WithMark}, {"utf16", true, kUtf16Page},
    {"1252", false, kWindows1252Page}, {"oem", false, kOemPage},
};

bool findForm(const std::string& name, TextForm& out) {
    for (const TextForm& form : kForms) {
        if (name == form.name) {
            out = form;
            return true;
        }
    }
    unsigned page = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), page);
    if (error != std::errc() || end != name.data() + name.size() || page == 0 || page > kLargestPage) return false;
    out = page == kUtf8WithMark ? kForms[0] : TextForm{"", false, page};
    return true;
}

}  // namespace

TextForm textForm(const std::string& name) {
    TextForm form;
    findForm(name, form);
    return form;
}

CLI::Validator isTextForm() {
    return {[](std::string& name) {
                TextForm ignored;
                return findForm(name, ignored) ? std::string() : "no such encoding: " + name;
            },
            "utf8|utf8-bom|utf16|1252|oem|PAGE"};
}

}  // namespace orvtool
