#include "orv/framework/exceptions.h"

CException::~CException() = default;
CInvalidArgException::~CInvalidArgException() = default;

namespace orv {

void throwInvalidArgument() {
    static CInvalidArgException exception;
    throw &exception;
}

}  // namespace orv
