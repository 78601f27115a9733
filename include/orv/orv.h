// Everything that the library offers.
#pragma once

#include "orv/framework.h"
#include "orv/geometry.h"
#include "orv/hashing.h"
#include "orv/interpolation.h"
#include "orv/matrices.h"
#include "orv/messages.h"
#include "orv/numbers.h"
#include "orv/random.h"
#include "orv/paths.h"
#include "orv/records.h"
#include "orv/string_utilities.h"
#include "orv/text_files.h"
#include "orv/vector_level.h"
#include "orv/version.h"
#include "orv/wide.h"
