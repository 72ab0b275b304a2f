#include "simulator/demo/demo_page.hpp"

#include <algorithm>

#include "simulator/demo/demo_story.hpp"
#include "simulator/scenario/markup.hpp"

namespace simulator::demo {

namespace {

using scenario::escaped;

// Lengths are in the browser's pixels. The colours follow what the reader's system prefers.
constexpr std::string_view opening = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>Vantori</title>
<style>
:root { --ground: #f6f6f8; --ink: #1d1d22; --faint: #62626c; --rim: #1d1d22; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #16161a; --ink: #ececf0; --faint: #a0a0aa; --rim: #4a4a54; }
}
body { margin: 0 auto; padding: 2rem 1.5rem 4rem; max-width: 76rem; background: var(--ground);
  color: var(--ink); font: 1rem/1.5 Inter, system-ui, sans-serif; }
h1 { margin: 0; }
h2 { margin: 3rem 0 0; }
p { margin: .25rem 0 0; color: var(--faint); }
.row { display: flex; flex-wrap: wrap; gap: 2rem; margin-top: 1.5rem; }
figure { margin: 0; width: 250px; max-width: 100%; }
figure.lying { width: 541px; }
figure.film { width: 100%; }
img { display: block; width: 100%; height: auto; box-sizing: border-box; }
.upright img, .lying img { border: 5px solid var(--rim); border-radius: 30px; }
.film img { border: 1px solid var(--faint); border-radius: 12px; }
figcaption { margin-top: .75rem; font-size: .875rem; color: var(--faint); }
</style>
</head>
<body>
<h1>Vantori</h1>
<p>A toolbar that is pulled up from the bottom edge, shown on the phone that it is developed on.</p>
)";

constexpr std::string_view ending = "</body>\n</html>\n";

std::string_view className(Shape shape) {
    switch (shape) {
        case Shape::upright:
            return "upright";
        case Shape::lying:
            return "lying";
        case Shape::film:
            return "film";
    }
    return {};
}

std::string figure(const StoryPicture& picture, const DemoScene& scene) {
    const std::string file = escaped(scene.picture);
    const std::string caption = escaped(picture.caption);
    return "<figure class=\"" + std::string(className(picture.shape)) + "\"><a href=\"" + file +
           "\"><img src=\"" + file + "\" alt=\"" + caption + "\"></a><figcaption>" + caption +
           "</figcaption></figure>\n";
}

std::string section(const Chapter& chapter, std::span<const DemoScene> drawn) {
    std::string figures;
    for (const StoryPicture& picture : chapter.pictures) {
        const auto scene = std::ranges::find(drawn, picture.scene, &DemoScene::name);
        if (scene != drawn.end()) figures += figure(picture, *scene);
    }
    if (figures.empty()) return {};
    return "<h2>" + escaped(chapter.title) + "</h2>\n<p>" + escaped(chapter.text) +
           "</p>\n<div class=\"row\">\n" + figures + "</div>\n";
}

}  // namespace

std::string demoPage(std::span<const DemoScene> drawn) {
    std::string page(opening);
    for (const Chapter& chapter : demoStory()) page += section(chapter, drawn);
    page += ending;
    return page;
}

}  // namespace simulator::demo
