#include "hooks/hook_volume.hpp"

#include "settings/notifications.hpp"

namespace vantori {

// Nothing here listens: the volume slider follows the system's own notification. Posted for others.
void volumeValueDidChange(System<void(Object, float)> system, Object, Object controller,
                          float value) {
    system(controller, value);
    post(local::volumeShouldRefreshValue());
}

}  // namespace vantori
