// Where decoded files end up: a string, or an array that a caller frees.
#pragma once

#include <memory>
#include <utility>

#include "framework/utf8.h"
#include "orv/framework/string.h"
#include "text/text_reader.h"

namespace orv {

class StringSink final : public TextSink {
  public:
    void expect(std::uint64_t characters) override { grow(characters); }
    wchar_t* room(std::size_t characters) override;
    void written(std::size_t characters) override { length_ += characters; }
    void restart() override { length_ = 0; }
    /// The text; memory that it hardly uses is given back.
    CString take();

  private:
    void grow(std::uint64_t characters);

    CString text_;
    wchar_t* characters_ = nullptr;
    std::size_t length_ = 0;
    std::size_t capacity_ = 0;
};

class ArraySink final : public TextSink {
  public:
    void expect(std::uint64_t characters) override { grow(characters); }
    wchar_t* room(std::size_t characters) override;
    void written(std::size_t characters) override { length_ += characters; }
    void restart() override { length_ = 0; }
    /// The NUL-terminated array.
    std::unique_ptr<wchar_t[]> take();

  private:
    void grow(std::uint64_t characters);

    std::unique_ptr<wchar_t[]> characters_;
    std::size_t length_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace orv
