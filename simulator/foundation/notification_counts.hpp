// How often each in-process notification was posted since the last clear, by anyone.
#pragma once

#include <string_view>

namespace simulator {

void installNotificationCounts();
long notificationPosts(std::string_view name);
void clearNotificationPosts();

}  // namespace simulator
