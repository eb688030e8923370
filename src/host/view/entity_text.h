#pragma once

#include <string>
#include <string_view>
#include <vector>

struct ObjectRecord;

/// What selections ask of an entity, looked up in its text without opening it.

/// The entity's layer as it stands in its text, undecoded; "0" when it names none.
std::string_view rawLayerOf(const ObjectRecord& entity);
std::u16string layerOf(const ObjectRecord& entity);

/// Whether the entity has extended data of one of the applications (names compared without regard to case).
bool hasApplication(const ObjectRecord& entity, const std::vector<std::u16string>& names);

/// Whether the entity says of itself that it is not to be shown.
bool isInvisible(const ObjectRecord& entity);
