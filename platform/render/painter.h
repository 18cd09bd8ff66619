// Replays a scene on a Cairo surface. A painter caches what later drawings can reuse; use it in one thread.
#pragma once

#include <memory>

#include "platform/render/target.h"
#include "platform/ui/scene.h"
#include "platform/ui/symbol_set.h"

typedef struct _cairo cairo_t;

namespace orvel {

class Painter {
public:
    /// The symbols must outlive the painter.
    explicit Painter(const SymbolSet& symbols);
    ~Painter();

    /// Draws in the context's user space, in points, with the scene's top left corner at its origin: the background
    /// within a rounded shape of that corner radius, and nothing outside it.
    void paint(cairo_t* context, const Scene& scene, double cornerRadius, Target target);

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
