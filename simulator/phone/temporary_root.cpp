#include "simulator/phone/temporary_root.hpp"

#include <stdlib.h>

#include "simulator/runtime/black_box.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator {

TemporaryRoot::TemporaryRoot(std::filesystem::path asked)
    : path_(std::move(asked)), temporary_(path_.empty()) {
    std::error_code error;
    if (temporary_) {
        std::string name =
            (std::filesystem::temp_directory_path(error) / "vantori-XXXXXX").string();
        if (!mkdtemp(name.data())) throw PhoneError("cannot make a folder for the phone");
        path_ = name;
        if (BlackBox* box = BlackBox::ofThisProcess()) box->root(name);
    } else if (std::filesystem::create_directories(path_, error); error) {
        throw PhoneError("cannot make " + path_.string() + ": " + error.message());
    }
}

TemporaryRoot::~TemporaryRoot() {
    std::error_code error;
    if (temporary_) std::filesystem::remove_all(path_, error);
}

}  // namespace simulator
