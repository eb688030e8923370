#include "sections/database_cs.h"

DatabaseCS g_DatabaseCS;
