// The spring of the toolbar's movements, which pages share.
#pragma once

#include "core/spring.hpp"
