// The value types of the user-interface framework in which the library's interface speaks.
//
// Names, signatures and behaviour are the framework's; only the part that the interface and its hosts use is here.
#pragma once

#include "orv/framework/arrays.h"
#include "orv/framework/exceptions.h"
#include "orv/framework/file.h"
#include "orv/framework/lists.h"
#include "orv/framework/string.h"
#include "orv/framework/time.h"
