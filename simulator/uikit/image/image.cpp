#include "simulator/uikit/image/image.hpp"

#include <filesystem>
#include <map>

#include "simulator/rendering/png.hpp"
#include "simulator/uikit/raise.hpp"
#include "simulator/uikit/screen/screen.hpp"

namespace simulator {

namespace {

struct ImageState {
    rendering::PictureRef picture;
    double scale;        // pixels per point of the file; the screen's for a drawing
    long renderingMode;  // automatic 0, original 1, template 2
};

std::string asItIs(const std::string& path) { return path; }
std::string (*resolvePath)(const std::string&) = &asItIs;

UIImage fresh(const ImageState& state) {
    auto image = create<UIImage>();
    if (!image) return UIImage();
    stateOf<ImageState>(image) = state;
    return image.autoreleased();
}

UIImage imageOf(rendering::Surface surface, double scale) {
    auto picture = rendering::Picture::pixels(std::move(surface), scale);
    return picture ? fresh({picture, scale, 0}) : UIImage();
}

UIImage load(const std::filesystem::path& path, double scale) {
    auto read = rendering::readPng(resolvePath(path.string()));
    return read ? imageOf(std::move(read.surface), scale) : UIImage();
}

// "name@2x.png" is found beside "name.png", the screen's own scale first.
UIImage imageAt(const std::string& path) {
    if (path.empty()) return UIImage();
    std::filesystem::path file(path);
    if (file.extension().empty()) file.replace_extension(".png");
    std::filesystem::path stem = file.parent_path() / file.stem();
    if (stem.string().ends_with("@2x")) return load(file, 2);
    if (stem.string().ends_with("@3x")) return load(file, 3);
    bool first3 = screen().scale >= 3;
    for (int scale : {first3 ? 3 : 2, first3 ? 2 : 3}) {
        auto named = stem.string() + "@" + std::to_string(scale) + "x" + file.extension().string();
        if (UIImage image = load(named, scale)) return image;
    }
    return load(file, 1);
}

// A name keeps its image for the life of the process. One that has none is looked for again.
UIImage namedImage(const std::string& name) {
    static auto& kept = *new std::map<std::string, Strong<UIImage>>;
    auto found = kept.find(name);
    if (found != kept.end()) return found->second;
    UIImage image = imageAt(name);
    if (image) kept.emplace(name, retained(image));
    return image;
}

}  // namespace

UIImage makeImage(const rendering::PictureRef& picture) {
    return picture ? fresh({picture, screen().scale, 0}) : UIImage();
}

rendering::PictureRef pictureOf(UIImage image) {
    if (!image.isKindOfClass(classOf<UIImage>())) return nullptr;
    return stateOf<ImageState>(image).picture;
}

bool isTemplate(UIImage image) { return image && stateOf<ImageState>(image).renderingMode == 2; }

void setImagePaths(std::string (*resolve)(const std::string&)) { resolvePath = resolve; }

void registerImage() {
    table<UIImage, Object, ImageState>()
        .classMethod<"imageWithContentsOfFile:">(
            [](Class, NSString path) { return imageAt(text(path)); })
        .classMethod<"imageNamed:">([](Class, NSString name) { return namedImage(text(name)); })
        .classMethod<"imageNamed:inBundle:compatibleWithTraitCollection:">(
            [](Class, NSString name, Object bundle, UITraitCollection) {
                auto folder = text(bundle.send<"bundlePath", NSString>());
                return imageAt(folder.empty() ? text(name) : folder + "/" + text(name));
            })
        .classMethod<"imageWithData:">([](Class, Object data) -> UIImage {
            const void* bytes = data.send<"bytes", void*>();
            auto length = data.send<"length", unsigned long>();
            if (!bytes) return UIImage();
            auto read =
                rendering::decodePng({static_cast<const std::byte*>(bytes), length}, "image data");
            return read ? imageOf(std::move(read.surface), 1) : UIImage();
        })
        .method<"initWithContentsOfFile:">([](UIImage self, NSString path) -> UIImage {
            if (UIImage image = imageAt(text(path))) {
                stateOf<ImageState>(self) = stateOf<ImageState>(image);
                return self;
            }
            self.send<"release">();
            return UIImage();
        })
        .method<"size">([](UIImage self) -> CGSize {
            auto picture = pictureOf(self);
            if (!picture) return {0, 0};
            return {picture->size().width, picture->size().height};
        })
        .readonly<"scale", &ImageState::scale>()
        // Images do not change: a copy is the image itself.
        .method<"copyWithZone:">([](UIImage self, void*) -> UIImage {
            UIImage same = self;
            return UIImage(retained(same).leak());
        })
        .readonly<"renderingMode", &ImageState::renderingMode>()
        .method<"imageWithRenderingMode:">([](UIImage self, long mode) {
            ImageState state = stateOf<ImageState>(self);
            state.renderingMode = mode;
            return fresh(state);
        });
}

}  // namespace simulator
