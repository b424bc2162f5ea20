// SPDX-License-Identifier: GPL-3.0-or-later
// A publication on its whole road into the cache: the first line is the topic, the rest the document.
#include "fuzz/Fuzz.h"
#include "link/JsonBackendCommunicator.h"

#include <cmath>
#include <sanitizer/lsan_interface.h>

namespace {

class BareLink : public JsonBackendCommunicator
{
public:
    BareLink()
        : JsonBackendCommunicator(WithoutSockets(), nullptr)
    {}

    using JsonBackendCommunicator::onSubMessageReceived;
};

// The geometry of the things of a plan, which reaches the drawing.
template <typename Item>
bool isPlaced(const Item &item)
{
    return std::isfinite(item.position.x) && std::isfinite(item.position.y) && std::isfinite(item.width)
        && std::isfinite(item.height);
}

template <typename Item, typename Holds>
void requireAll(const std::vector<Item> &items, Holds holds, const char *what)
{
    for (const auto &item : items)
        Fuzz::require(holds(item), what);
}

void check(const BackendDataCache &cache)
{
    requireAll(cache.getZones(), isPlaced<Model::Zone>, "zones are finite");
    requireAll(cache.getButtons(), isPlaced<Model::Button>, "buttons are finite");
    requireAll(cache.getIndicators(), isPlaced<Model::Indicator>, "indicators are finite");
    requireAll(
        cache.getImageItems(),
        [](const Model::ImageItem &item) {
            return std::isfinite(item.x) && std::isfinite(item.y) && std::isfinite(item.width)
                && std::isfinite(item.height) && std::isfinite(item.opacity);
        },
        "pictures are finite");
    requireAll(
        cache.getView3DItems(),
        [](const Model::View3DItem &item) {
            return std::isfinite(item.x) && std::isfinite(item.y) && std::isfinite(item.z) && std::isfinite(item.scaleX)
                && std::isfinite(item.rotationZ) && std::isfinite(item.opacity) && item.modelData.isEmpty();
        },
        "meshes are finite");
    requireAll(
        cache.getIndicatorStates(), [](const Model::IndicatorState &state) { return std::isfinite(state.opacity); },
        "opacities are finite");
    requireAll(
        cache.getButtonStates(),
        [](const Model::ButtonState &state) {
            return state.state == Model::ButtonState::State::Off || state.state == Model::ButtonState::State::On;
        },
        "a button is on or off");
    for (const auto &blueprint : cache.getBlueprints()) {
        requireAll(
            blueprint.nodes,
            [](const Model::NodeInstance &node) {
                return std::isfinite(node.position.x) && std::isfinite(node.position.y);
            },
            "nodes are finite");
    }
    const auto settings = cache.getSettings();
    Fuzz::require(Model::Settings::fromVariant(settings.toVariant()) == settings, "settings stay the same as a map");
}

} // namespace

void Fuzz::fuzzOne(const QByteArray &input)
{
    const int end = input.indexOf('\n');
    const auto topic = input.left(end);
    const auto body = end < 0 ? QByteArray() : input.mid(end + 1);
    BareLink link;
    int lists = 0;
    QObject::connect(&link, &AbstractBackendCommunicator::zonesReceived, [&lists] { ++lists; });
    {
        // The parser of Qt 5.15 loses the map or list of a key that stands twice in an object: its leaks are not ours.
        __lsan::ScopedDisabler disabler;
        const char json[] = {0, 2}; // of the header: the version and the flag
        link.onSubMessageReceived({topic, QByteArray(), QByteArray(json, sizeof json), body});
    }
    require(lists <= 1 && (lists == 0 || topic == "zones"), "a list is announced once, under its own topic");
    check(link.getDataCache());
}
