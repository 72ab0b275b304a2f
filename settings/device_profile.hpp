// What depends on the model of the phone.
#pragma once

#include <string_view>

#include "platform/foundation.hpp"

namespace vantori {

using namespace platform;

// The marketing name of a machine identifier; one that is not in the table comes back unchanged.
std::string_view modelName(std::string_view machine);

// The marketing name of this phone, from the machine field of uname.
NSString getModelName();

// Whether the object's own class (not its superclasses) declares an instance variable of that name.
bool isKeyExisted(NSString key, Object object);

// In points: 30 for the models with rounded displays that the list knows, else 10.
double modelCornerRadius();

// As the platform says.
bool hasNoHomeButton();

// From which system on a phone has light and dark styles, among others.
bool isSystem13OrLater();

}  // namespace vantori
