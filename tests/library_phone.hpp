// A phone with the library's own code in the test's process. Every test is a process of its own: the
// library is never torn down.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "hooks/start_up.hpp"
#include "settings/variables.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/scenario/phone.hpp"
#include "toolbar/sb_toolbar_controller.hpp"

namespace vantori::tests {

class LibraryPhone : public testing::Test {
  protected:
    LibraryPhone() : phone_(simulator::makePhone({})) {
        simulator::setExtensionLoader(&vantori::startUp);
    }

    // Boots, then forgets what was counted meanwhile.
    void boot() {
        phone_->boot();
        phone_->clear();
    }
    void set(const std::string& key, nlohmann::json value) { phone_->setting(key, value); }
    // As the settings pane does after a change.
    void announceSettings() {
        phone_->postDarwin("VantoriPB/reloadSettings");
        phone_->wait(0.1);
    }
    long posted(const std::string& name) const { return phone_->postedCount(name); }

    // Where a finger meets the middle of a view.
    static CGPoint middleOf(UIView view) {
        const CGSize size = view.bounds().size;
        UIView window = view.send<"window", UIView>();
        return window.convertPointFrom({size.width / 2, size.height / 2}, view);
    }
    void touch(CGPoint place) { phone_->touchDown(place.x, place.y); }
    void tapOn(UIView view) {
        touch(middleOf(view));
        phone_->wait(0.05);
        phone_->touchUp();
    }

    AutoreleasePool pool_;
    std::unique_ptr<simulator::Phone> phone_;
};

}  // namespace vantori::tests
