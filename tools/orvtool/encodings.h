// Encodings of text files as the command line names them.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace orvtool {

inline constexpr unsigned kOemPage = 3331, kWindows1252Page = 3332, kUtf8Page = 3333, kUtf8WithMark = 65001,
                          kUtf16Page = 0xFFFFFFFF;

/// The arguments of the library's writers.
struct TextForm {
    const char* name = "";
    bool unicode = true;
    unsigned page = kUtf8WithMark;
};

/// Of a name that isTextForm() has let through.
TextForm textForm(const std::string& name);
/// For options: "utf8", "utf8-bom", "utf16", "1252", "oem" or the number of a Windows code page.
CLI::Validator isTextForm();

}  // namespace orvtool
