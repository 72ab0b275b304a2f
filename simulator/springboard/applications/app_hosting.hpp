// How SpringBoard shows an application inside a view of its own: a scene entity names the application's
// scene, and a view controller has that made and draws it. On real phones only.
#pragma once

namespace simulator {

void registerAppHosting();

}  // namespace simulator
