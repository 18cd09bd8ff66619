#include "platform/ui/inspection.h"

#include <cmath>

namespace orvel {
namespace {

const char* name(HorizontalAlignment alignment) {
    switch (alignment) {
        case HorizontalAlignment::leading: return "leading";
        case HorizontalAlignment::center: return "center";
        case HorizontalAlignment::trailing: return "trailing";
    }
    return "";
}

const char* name(VerticalAlignment alignment) {
    switch (alignment) {
        case VerticalAlignment::top: return "top";
        case VerticalAlignment::center: return "center";
        case VerticalAlignment::bottom: return "bottom";
    }
    return "";
}

class Dump {
public:
    explicit Dump(json::Writer& writer) : writer_(writer) {}

    void view(const View& view) {
        writer_.beginObject();
        std::visit([&](const auto& n) { node(n); }, view.node().alternatives());
        writer_.endObject();
    }

private:
    void word(const char* word) { writer_.key("view").string(word); }

    void number(const char* key, double value) {
        writer_.key(key);
        if (std::isfinite(value))
            writer_.number(value);
        else
            writer_.string(std::isnan(value) ? "nan" : value > 0 ? "infinity" : "-infinity");
    }
    void number(const char* key, std::optional<double> value) {
        if (value) number(key, *value);
    }
    void style(const char* key, const ShapeStyle& style) {
        const auto* color = std::get_if<Color>(&style);
        writer_.key(key).string(color ? hexText(*color) : name(std::get<HierarchicalShapeStyle>(style)));
    }
    void alignment(Alignment alignment) {
        writer_.key("alignment").beginArray();
        writer_.string(name(alignment.horizontal)).string(name(alignment.vertical)).endArray();
    }
    void children(const std::vector<View>& children) {
        writer_.key("children").beginArray();
        for (const View& child : children) view(child);
        writer_.endArray();
    }
    void content(const View& content) {
        writer_.key("content");
        view(content);
    }

    void node(const node::Text& text) {
        word("Text");
        if (const auto* verbatim = std::get_if<std::string>(&text.content)) {
            writer_.key("verbatim").string(*verbatim);
            return;
        }
        const auto& key = std::get<LocalizedStringKey>(text.content);
        writer_.key("key").string(key.key);
        if (key.arguments.empty()) return;
        writer_.key("arguments").beginArray();
        for (const auto argument : key.arguments) writer_.integer(argument);
        writer_.endArray();
    }
    void node(const node::Image& image) {
        word("Image");
        writer_.key("systemName").string(image.systemName);
    }
    void node(const node::Spacer& spacer) {
        word("Spacer");
        number("minLength", spacer.minLength);
    }
    void node(const node::Circle& circle) {
        word("Circle");
        if (circle.trimFrom != 0 || circle.trimTo != 1) {
            writer_.key("trim").beginObject();
            number("from", circle.trimFrom);
            number("to", circle.trimTo);
            writer_.endObject();
        }
        if (!circle.stroke) {
            style("fill", circle.style);
            return;
        }
        style("stroke", circle.style);
        number("lineWidth", circle.stroke->lineWidth);
        writer_.key("lineCap").string(name(circle.stroke->lineCap));
        writer_.key("lineJoin").string(name(circle.stroke->lineJoin));
        number("miterLimit", circle.stroke->miterLimit);
    }
    void node(const node::VStack& stack) {
        word("VStack");
        writer_.key("alignment").string(name(stack.alignment));
        number("spacing", stack.spacing);
        children(stack.children);
    }
    void node(const node::HStack& stack) {
        word("HStack");
        writer_.key("alignment").string(name(stack.alignment));
        number("spacing", stack.spacing);
        children(stack.children);
    }
    void node(const node::ZStack& stack) {
        word("ZStack");
        alignment(stack.alignment);
        children(stack.children);
    }
    void node(const node::Modified<FixedFrame>& frame) {
        word("frame");
        number("width", frame.arguments.width);
        number("height", frame.arguments.height);
        alignment(frame.arguments.alignment);
        content(frame.content);
    }
    void node(const node::Modified<FlexibleFrame>& frame) {
        const FlexibleFrame& f = frame.arguments;
        word("frame");
        number("minWidth", f.minWidth);
        number("idealWidth", f.idealWidth);
        number("maxWidth", f.maxWidth);
        number("minHeight", f.minHeight);
        number("idealHeight", f.idealHeight);
        number("maxHeight", f.maxHeight);
        alignment(f.alignment);
        content(frame.content);
    }
    void node(const node::Modified<Font>& font) {
        word("font");
        number("size", font.arguments.size);
        writer_.key("weight").integer(static_cast<int>(font.arguments.weight));
        content(font.content);
    }
    void node(const node::Modified<ShapeStyle>& modified) {
        word("foregroundStyle");
        style("style", modified.arguments);
        content(modified.content);
    }
    void node(const node::Modified<node::LineLimit>& limit) {
        word("lineLimit");
        writer_.key("lines").integer(limit.arguments.lines);
        content(limit.content);
    }
    void node(const node::Modified<node::MinimumScaleFactor>& scale) {
        word("minimumScaleFactor");
        number("factor", scale.arguments.factor);
        content(scale.content);
    }
    void node(const node::Modified<node::Rotation>& rotation) {
        word("rotationEffect");
        number("degrees", rotation.arguments.angle.degrees);
        writer_.key("anchor").beginArray();
        writer_.number(rotation.arguments.anchor.x).number(rotation.arguments.anchor.y).endArray();
        content(rotation.content);
    }
    void node(const node::Modified<node::ContainerBackground>& background) {
        word("containerBackground");
        writer_.key("color").string(hexText(background.arguments.color));
        writer_.key("placement").string("widget");
        content(background.content);
    }
    void node(const node::Modified<node::Identity>& identity) {
        word("id");
        writer_.key("id").integer(identity.arguments.id);
        content(identity.content);
    }

    json::Writer& writer_;
};

void write(json::Writer& writer, const TextMark& text) {
    writer.key("text").string(text.text);
    writer.key("font").beginObject();
    writer.key("size").number(text.font.size).key("weight").integer(static_cast<int>(text.font.weight));
    writer.endObject();
    writer.key("color").string(hexText(text.color));
    writer.key("baseline").number(text.baseline).key("lines").integer(text.lines);
}

void write(json::Writer& writer, const SymbolMark& symbol) {
    writer.key("name").string(symbol.name).key("color").string(hexText(symbol.color));
}

void write(json::Writer& writer, const CircleMark& circle) {
    writer.key("color").string(hexText(circle.color));
}

void write(json::Writer& writer, const ArcMark& arc) {
    writer.key("from").number(arc.from).key("to").number(arc.to).key("start").number(arc.startDegrees);
    writer.key("width").number(arc.stroke.lineWidth).key("cap").string(name(arc.stroke.lineCap));
    writer.key("color").string(hexText(arc.color));
}

constexpr const char* nameOf(const TextMark&) {
    return "text";
}
constexpr const char* nameOf(const SymbolMark&) {
    return "symbol";
}
constexpr const char* nameOf(const CircleMark&) {
    return "circle";
}
constexpr const char* nameOf(const ArcMark&) {
    return "arc";
}

void write(json::Writer& writer, const std::vector<Mark>& marks) {
    writer.beginArray();
    for (const Mark& mark : marks) {
        std::visit(
            [&](const auto& content) {
                writer.beginObject().key("mark").string(nameOf(content));
                writer.key("frame").beginArray();
                for (const double number :
                     {mark.frame.origin.x, mark.frame.origin.y, mark.frame.size.width, mark.frame.size.height})
                    writer.number(number);
                writer.endArray();
                write(writer, content);
                if (mark.rotationDegrees != 0) writer.key("rotation").number(mark.rotationDegrees);
                writer.endObject();
            },
            mark.content);
    }
    writer.endArray();
}

}  // namespace

void write(json::Writer& writer, const View& view) {
    Dump(writer).view(view);
}

std::optional<std::string> inspection(std::string_view family, const View& view, const Scene& scene) {
    json::Writer writer;
    writer.beginObject().key("family").string(family);
    writer.key("size").beginArray().number(scene.size.width).number(scene.size.height).endArray();
    writer.key("background");
    if (scene.background)
        writer.string(hexText(*scene.background));
    else
        writer.null();
    writer.key("tree");
    write(writer, view);
    writer.key("marks");
    write(writer, scene.marks);
    return writer.endObject().finish();
}

}  // namespace orvel
