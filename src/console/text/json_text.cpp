#include "console/text/json_text.h"

namespace console
{

namespace
{

void makeUtf8(Json& json)
{
    if (json.is_string())
        json = toUtf8(keepBytes(json.get_ref<const std::string&>()));
    else if (json.is_structured())
        for (Json& element : json)
            makeUtf8(element);
}

} // namespace

std::string oneLine(Json json)
{
    makeUtf8(json);
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace console
