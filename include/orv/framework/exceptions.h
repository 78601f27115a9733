// The exceptions that the framework's types raise.
//
// As everywhere in the framework they are thrown by pointer; whoever catches one calls Delete():
//
//     try { points.GetAt(index); } catch (CInvalidArgException* e) { e->Delete(); }
#pragma once

#include "orv/export.h"

/// Base of all framework exceptions. Never copied; freed by Delete().
class ORV_API CException {
  public:
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;

    /// Gives the object back. An exception of this library is one static object each, so nothing is freed.
    void Delete() {}

  protected:
    CException() = default;
    virtual ~CException();
};

/// An argument outside its range, such as an index behind the end of an array.
class ORV_API CInvalidArgException : public CException {
  public:
    ~CInvalidArgException() override;
};

namespace orv {

/// Throws the process's one CInvalidArgException (a pointer to it).
[[noreturn]] ORV_API void throwInvalidArgument();

}  // namespace orv
