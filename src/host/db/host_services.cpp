#include "host/db/host_services.h"

#include <stdexcept>
#include <utility>

namespace
{

thread_local AcDbHostApplicationServices* running = nullptr;

} // namespace

DrawingStore AcDbHostApplicationServices::readSymbolDrawing(std::u16string_view)
{
    throw std::runtime_error{"there is nobody who reads symbol drawings"};
}

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices nobody;
    return running != nullptr ? running : &nobody;
}

AcDbHostApplicationServices* acdbSetHostApplicationServices(AcDbHostApplicationServices* services)
{
    return std::exchange(running, services);
}
