#pragma once

#include "store/object_id.h"

class DbHelper
{
public:
    /// Erases the entities of the listed ids; null ids and what cannot be opened for write are passed over.
    static void DeleteEntity(AcDbObjectIdArray& ids, bool erase);
};
