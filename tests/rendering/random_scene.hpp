// Trees with everything that a node can have, and what may happen to them from one frame to the next.
// The same seed gives the same trees.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "simulator/rendering/scene.hpp"

namespace simulator::rendering {

class RandomScene {
  public:
    RandomScene(unsigned seed, Size screen);

    const Node& root() const { return root_; }
    // Changes one node or a few: they move, fade, turn, come, go, get another content.
    void change();

  private:
    double number(double from, double to);
    int whole(int from, int to);
    bool oneIn(int chances) { return whole(1, chances) == 1; }
    Colour colour();
    Content content();
    Node node(int depth);
    void move(Node& node);
    void restyle(Node& node);
    Node& anyNode();

    std::mt19937 engine_;
    Size screen_;
    std::vector<PictureRef> pictures_;
    Node root_;
};

}  // namespace simulator::rendering
