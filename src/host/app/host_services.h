#pragma once

class AcDbDatabase;

/// What the database layer asks of the application around it.
class AcDbHostApplicationServices
{
public:
    /// The current document's database; null when no drawing is open.
    AcDbDatabase* workingDatabase() const;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
