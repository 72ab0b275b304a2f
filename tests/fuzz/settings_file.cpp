// The bytes are the file of the settings on a phone that runs: they are read as after a change in the
// settings pane, all of the toolbar is laid out anew, and it is opened and closed with them.
#include <cstdlib>
#include <memory>

#include "hooks/start_up.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/scenario/phone.hpp"
#include "tests/fuzz/target.hpp"

namespace {

using simulator::PullPhase;

std::unique_ptr<simulator::Phone> startedPhone() {
    auto phone = simulator::makePhone({});
    simulator::setExtensionLoader(&vantori::startUp);
    phone->boot();
    return phone;
}

void pull(simulator::Phone& phone, double end) {
    phone.grabber(PullPhase::began, 60, 10, 0);
    phone.grabber(PullPhase::ended, 60, end, 0);
    phone.wait(1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto phone = startedPhone();
    const platform::AutoreleasePool pool;
    simulator::writeFile(simulator::DeviceRoot::shared().locate(
                             "/var/mobile/Library/Preferences/com.ferolin.vantoripb.plist"),
                         vantori::fuzz::textOf(data, size));
    phone->postDarwin("VantoriPB/reloadSettings");
    phone->wait(0.1);
    pull(*phone, 100);
    pull(*phone, 100);
    if (phone->crashed()) std::abort();
    return 0;
}
