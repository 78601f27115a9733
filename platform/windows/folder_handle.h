// An open file or folder, for the calls that want a handle.
#pragma once

namespace orv::platform {

class OpenHandle {
  public:
    OpenHandle(const wchar_t* path, unsigned long access);
    OpenHandle(const OpenHandle&) = delete;
    OpenHandle& operator=(const OpenHandle&) = delete;
    ~OpenHandle();

    bool isOpen() const;
    void* get() const { return handle_; }

  private:
    void* handle_;
};

}  // namespace orv::platform
