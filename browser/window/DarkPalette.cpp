#include <browser/window/DarkPalette.hpp>

#include <array>

namespace {

struct RoleColor
{
    QPalette::ColorRole role;
    QRgb color;
};

constexpr std::array role_colors{
    RoleColor{QPalette::Window, 0x2b2d30},
    RoleColor{QPalette::WindowText, 0xdcdee2},
    RoleColor{QPalette::Base, 0x1f2123},
    RoleColor{QPalette::AlternateBase, 0x26282b},
    RoleColor{QPalette::ToolTipBase, 0x3a3d41},
    RoleColor{QPalette::ToolTipText, 0xdcdee2},
    RoleColor{QPalette::PlaceholderText, 0x85898f},
    RoleColor{QPalette::Text, 0xdcdee2},
    RoleColor{QPalette::Button, 0x36393d},
    RoleColor{QPalette::ButtonText, 0xdcdee2},
    RoleColor{QPalette::BrightText, 0xff6b68},
    RoleColor{QPalette::Light, 0x4a4e53},
    RoleColor{QPalette::Midlight, 0x404348},
    RoleColor{QPalette::Mid, 0x2f3235},
    RoleColor{QPalette::Dark, 0x1a1b1d},
    RoleColor{QPalette::Shadow, 0x0f1011},
    RoleColor{QPalette::Highlight, 0x2f65ca},
    RoleColor{QPalette::HighlightedText, 0xffffff},
    RoleColor{QPalette::Link, 0x6ba4ff},
    RoleColor{QPalette::LinkVisited, 0xb48ead},
};

constexpr std::array dimmed_roles{
    QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText};

} // namespace

QPalette dark_palette()
{
    QPalette palette;
    for (const RoleColor& entry : role_colors) {
        palette.setColor(entry.role, QColor(entry.color));
    }
    for (const QPalette::ColorRole role : dimmed_roles) {
        palette.setColor(QPalette::Disabled, role, QColor(0x70747a));
    }
    return palette;
}
