#include "Cauldron.h"

#include "skins/Skin.h"

#include <algorithm>
#include <stdexcept>

namespace vexmoor::test {
namespace {

std::optional<SeenWindow> find(Screen& screen,
                               const std::function<bool(const SeenWindow&)>& isWanted) {
    return screen.find([&](const SeenWindow& window) {
        return window.className == Cauldron::kName && isWanted(window);
    });
}

std::vector<QRgb> acidColours() {
    std::vector<QRgb> colours;
    for (const Pixel& pixel : {Skin::iron().acid, Skin::iron().acidDark, Skin::iron().acidLight})
        colours.push_back(qRgb(pixel.r, pixel.g, pixel.b));
    return colours;
}

} // namespace

Cauldron::Cauldron(DesktopSession& session, const std::vector<std::string>& arguments,
                   const BackgroundProgram::Environment& changes)
    : m_session(session), m_program(session.start(words(arguments), changes)) {
    if (!eventually([this] { return tile().has_value(); }))
        throw std::runtime_error("no tile comes");
}

BusObject Cauldron::application() {
    return {kName, "/org/vexmoor/Vexmoor", "org.freedesktop.Application"};
}

std::vector<std::string> Cauldron::words(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{VEXMOOR_DESKTOP_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

std::optional<SeenWindow> Cauldron::tile() const {
    return find(m_session.screen(), [](const SeenWindow& window) { return window.isDock; });
}

std::optional<SeenWindow> Cauldron::flames() const {
    return find(m_session.screen(), [](const SeenWindow& window) { return !window.isManaged; });
}

bool Cauldron::burns() const {
    constexpr int kFlame = 20; // canvas pixels
    const QRect place = tile().value().frame;
    const int cell = place.width() / 34;
    const QRect above = place.translated(0, -place.height());
    return eventually([&] {
        const QImage picture = m_session.screen().picture().copy(above);
        return countOf(picture, acidColours()) > kFlame * cell * cell;
    });
}

std::optional<SeenWindow> Cauldron::statsWindow() const {
    return find(m_session.screen(), [](const SeenWindow& window) {
        return window.isManaged && !window.isDock && !window.isDialog;
    });
}

bool Cauldron::alerts(const std::string& sentence) const {
    return eventually([&] {
        const auto active = m_session.screen().active();
        if (!active || active->className != kName || !active->isDialog)
            return false;
        const auto all = elements();
        const auto has = [&](const auto& test) {
            return std::any_of(all.begin(), all.end(), [&](const AccessibleElement& element) {
                return element.isShowing && test(element);
            });
        };
        const bool isGuarded = has([](const AccessibleElement& element) {
            return !element.isEnabled && (element.name == "Dissolve" || element.name == "Delete" ||
                                          element.name == "Auflösen");
        });
        return !isGuarded &&
               has([&](const AccessibleElement& element) { return element.name == sentence; });
    });
}

bool Cauldron::isAlerting() const {
    return find(m_session.screen(), [](const SeenWindow& window) { return window.isDialog; })
        .has_value();
}

std::vector<AccessibleElement> Cauldron::elements() const {
    return AccessibleTree(m_session.bus()).elementsOf("Vexmoor");
}

std::optional<AccessibleElement> Cauldron::element(const std::string& beginning) const {
    std::optional<AccessibleElement> found;
    eventually([&] {
        for (const AccessibleElement& one : elements())
            if (one.isShowing && one.name.starts_with(beginning))
                found = one;
        return found.has_value();
    });
    return found;
}

nlohmann::json Cauldron::history() const {
    return nlohmann::json::parse(m_session.run({VEXMOOR_PROGRAM, "history", "--json"}));
}

std::string Cauldron::setting(const std::string& name) const {
    const std::string line = m_session.run({VEXMOOR_PROGRAM, "settings", name});
    return line.substr(0, line.find('\n'));
}

int Cauldron::feed(const std::vector<Path>& items) const {
    return m_session.command(words({items.begin(), items.end()})).run().status;
}

bool Cauldron::records(std::size_t count, const char* fate) const {
    return eventually([&] {
        const auto all = history();
        return static_cast<std::size_t>(
                   std::count_if(all.begin(), all.end(), [fate](const auto& sacrifice) {
                       return fate == nullptr || sacrifice.contains(fate);
                   })) == count;
    });
}

void Cauldron::putBack() const {
    m_session.call(application(), "ActivateAction", {"put-back", QVariantList{}, QVariantMap{}});
}

void Cauldron::feedSelection() const {
    const QPoint place = middle();
    m_session.xdotool("mousemove " + std::to_string(place.x()) + " " + std::to_string(place.y()) +
                      " click 3");
    eventually([this] { return flames().has_value(); }); // the menu has the same window type
    m_session.press("Down Return");
}

} // namespace vexmoor::test
