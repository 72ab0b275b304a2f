// UIImageView. Takes no touches until it is told to, as on the platform.
#include "simulator/uikit/image/image.hpp"
#include "simulator/uikit/view/view.hpp"

namespace simulator {

namespace {

struct ImageViewState {
    Strong<UIImage> image, highlightedImage;
    bool highlighted;
};

CGSize imageSize(UIImageView view) {
    UIImage image = imageOf(view);
    return image ? image.send<"size", CGSize>() : CGSize{-1, -1};
}

}  // namespace

UIImage imageOf(UIImageView view) {
    const auto& s = stateOf<ImageViewState>(view);
    return s.highlighted && s.highlightedImage ? s.highlightedImage : s.image;
}

void registerImageView() {
    table<UIImageView, UIView, ImageViewState>()
        .method<"initWithFrame:">([](UIImageView self, CGRect frame) -> UIImageView {
            auto view = super<UIImageView, "initWithFrame:", UIImageView>(self, frame);
            if (view) viewState(view).interactionDisabled = true;
            return view;
        })
        .method<"initWithImage:">([](UIImageView self, UIImage image) -> UIImageView {
            CGSize size = image.send<"size", CGSize>();
            auto view = self.send<"initWithFrame:", UIImageView>(CGRect{{0, 0}, size});
            view.send<"setImage:">(image);
            return view;
        })
        .property<"image", &ImageViewState::image>()
        .property<"highlightedImage", &ImageViewState::highlightedImage>()
        .flag<"isHighlighted", "setHighlighted:", &ImageViewState::highlighted>()
        .method<"intrinsicContentSize">([](UIImageView v) { return imageSize(v); })
        .method<"sizeThatFits:">([](UIImageView v, CGSize) -> CGSize {
            CGSize size = imageSize(v);
            return size.width < 0 ? CGSize{0, 0} : size;
        });
}

}  // namespace simulator
