// Encoding of text files.
#pragma once

#include "orv/wide.h"
#include "platform/files.h"

namespace orv {

/// How a text is written.
struct TextForm {
    enum class Kind {
        kRefused,  // no such form: nothing is touched
        kNothing,  // an empty file
        kUtf8,
        kUtf16,
        kWindows1252,
        kSystemPage
    };

    Kind kind = Kind::kRefused;
    bool hasMark = false;
    unsigned page = 0;
};

/// For a file that is Unicode: 65001, 3333 or -1; any other page writes an empty file.
TextForm unicodeForm(unsigned codePage);
/// For a file that is converted; -1 and pages that the system does not know are refused.
TextForm convertedForm(unsigned codePage);
/// For lists of lines: Unicode for 65001, 3333 and -1, converted otherwise.
TextForm listForm(unsigned codePage);

/// Creates or replaces a file. False when it cannot be created or written, or the form is refused. Throws
/// std::bad_alloc, in which case an old file is untouched.
bool writeText(const wchar_t* path, WideView text, const TextForm& form, bool isScrambled);
/// The same at the end of the file as it stands; a mark only in a file that this creates.
bool appendText(const wchar_t* path, WideView text, const TextForm& form);

}  // namespace orv
