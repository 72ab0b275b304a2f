// What is on screen now, and the text tree of the views.
#include <iomanip>
#include <sstream>

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/view/label/label.hpp"
#include "simulator/uikit/view/view.hpp"
#include "simulator/uikit/view/window/window.hpp"

namespace simulator {

namespace {

struct PresentationState {
    Strong<CALayer> layer;
};

LayerValues& shown(ViewPresentation p) {
    return layerState(stateOf<PresentationState>(p).layer).values;
}

// At most six decimals, without zeros at the end.
std::string number(double value) {
    std::ostringstream out;
    out << std::fixed << std::setprecision(6) << (value == 0 ? 0 : value);
    std::string digits = out.str();
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
    return digits == "-0" ? "0" : digits;
}

void rectangle(std::ostream& out, CGRect r) {
    out << "{" << number(r.origin.x) << ", " << number(r.origin.y) << ", " << number(r.size.width)
        << ", " << number(r.size.height) << "}";
}

// In quotes, in one line.
void quoted(std::ostream& out, const std::string& text) {
    out << " \"";
    for (const char c : text) {
        if (c == '"' || c == '\\') out << '\\';
        if (c == '\n')
            out << "\\n";
        else
            out << c;
    }
    out << '"';
}

void line(std::ostream& out, UIView view, int depth, FrameOnScreen onScreen) {
    const LayerValues& v = valuesOf(view);
    out << std::string(static_cast<std::size_t>(depth) * 2, ' ')
        << class_getName(object_getClass(view.get())) << " ";
    rectangle(out, frameOf(v));
    if (const auto place = onScreen(view)) {
        out << " at ";
        rectangle(out, *place);
    }
    if (view.isKindOfClass(classOf<UILabel>())) quoted(out, textOf(as<UILabel>(view)).text);
    out << " alpha " << number(v.opacity);
    if (v.hidden) out << " hidden";
    if (!(v.transform == identityTransform)) {
        const auto& t = v.transform;
        out << " transform {" << number(t.a) << ", " << number(t.b) << ", " << number(t.c) << ", "
            << number(t.d) << ", " << number(t.tx) << ", " << number(t.ty) << "}";
    }
    if (v.cornerRadius != 0) out << " radius " << number(v.cornerRadius);
    out << '\n';
    for (auto& subview : viewState(view).subviews) line(out, subview, depth + 1, onScreen);
}

CALayer layerBehind(Object viewOrLayer) {
    if (viewOrLayer.isKindOfClass(classOf<CALayer>())) return as<CALayer>(viewOrLayer);
    if (viewOrLayer.isKindOfClass(classOf<UIView>())) return layerOf(as<UIView>(viewOrLayer));
    return CALayer();
}

}  // namespace

Object presentation(Object viewOrLayer) {
    CALayer layer = layerBehind(viewOrLayer);
    if (!layer) return Object();
    auto copy = layer.send<"presentationLayer", CALayer>();
    if (viewOrLayer.isKindOfClass(classOf<CALayer>())) return copy;
    auto answer = create<ViewPresentation>();
    stateOf<PresentationState>(answer).layer = retained(copy);
    return answer.autoreleased();
}

void interrupt(Object viewOrLayer) {
    if (CALayer layer = layerBehind(viewOrLayer)) stopAnimations(layer, Stopping::atOnce);
}

std::string viewTree(UIView root, FrameOnScreen onScreen) {
    std::ostringstream out;
    if (root) {
        line(out, root, 0, onScreen);
    } else {
        for (auto& window : windowsBackToFront()) line(out, window, 0, onScreen);
    }
    return out.str();
}

void registerPresentation() {
    table<ViewPresentation, Object, PresentationState>()
        .method<"frame">([](ViewPresentation p) -> CGRect { return frameOf(shown(p)); })
        .method<"bounds">([](ViewPresentation p) -> CGRect { return shown(p).bounds; })
        .method<"center">([](ViewPresentation p) -> CGPoint { return shown(p).position; })
        .method<"alpha">([](ViewPresentation p) -> double { return shown(p).opacity; })
        .method<"isHidden">([](ViewPresentation p) -> bool { return shown(p).hidden; })
        .method<"transform">(
            [](ViewPresentation p) -> CGAffineTransform { return shown(p).transform; })
        .method<"backgroundColor">(
            [](ViewPresentation p) { return makeColor(shown(p).background); })
        .readonly<"layer", &PresentationState::layer>();
}

}  // namespace simulator
