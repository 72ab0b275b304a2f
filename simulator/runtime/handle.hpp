// Handles of classes that only the phone itself uses, each declared beside what defines the class. Those
// that the library uses too are in platform/.
#pragma once

#include "platform/fixed_string.hpp"

// A handle of the class of that name.
#define VANTORI_NAMED_CLASS(type, base, text)              \
    struct type : base {                                   \
        static constexpr platform::FixedString name{text}; \
        using base::base;                                  \
    }

// A handle named as its class is.
#define VANTORI_CLASS(type, base) VANTORI_NAMED_CLASS(type, base, #type)
