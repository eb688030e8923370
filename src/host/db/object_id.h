#pragma once

/// Ids and handles of objects.
#include "store/object_id.h"
