#include "hooks/hook_now_playing.hpp"

#include "settings/notifications.hpp"

namespace vantori {

void nowPlayingApplicationDidChange(System<void(Object)> system, Object, Object notification) {
    system(notification);
    post(local::shouldRefreshValue());
}

void setNowPlayingProcess(System<void(int)> system, Object, int process) {
    system(process);
    post(local::shouldRefreshValue());
}

void nowPlayingIsPlayingDidChange(System<void(Object)> system, Object, Object notification) {
    system(notification);
    post(local::nowPlayingChange());
}

}  // namespace vantori
