// Natively the wordbooks lie beside the host program.
#include "localization/library_module.h"

namespace orv {

ModuleHandle libraryHandle() { return nullptr; }

WideString libraryPath() { return {}; }

bool sameModule(ModuleHandle a, ModuleHandle b) { return a == b; }

}  // namespace orv
