#include "host/app/host_services.h"

#include "host/app/session.h"

AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const
{
    if (!host::Session::hasCurrent())
        return nullptr;
    const AcApDocument* document = host::Session::current().documents().curDocument();
    return document != nullptr ? document->database() : nullptr;
}

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices services;
    return &services;
}
