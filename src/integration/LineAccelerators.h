#pragma once

#include "integration/AcceleratorText.h"

namespace vexmoor {

/// A file of one binding a line. Our line becomes the first one: so a last line without its line
/// break stays as it is, and ours is read even where a reader stops at a line that it does not
/// understand.
class LineAccelerators : public AcceleratorText {
  public:
    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;

  protected:
    /// What the line binds; nullopt for a comment or anything else.
    [[nodiscard]] virtual std::optional<Binding> bindingIn(std::string_view line) const = 0;
    [[nodiscard]] virtual std::string ourLine() const = 0;
};

/// Nautilus's "scripts-accels": "<Control>BackSpace Name of the script".
class ScriptAccelerators : public LineAccelerators {
  public:
    explicit ScriptAccelerators(std::string script) : m_script(std::move(script)) {}

  protected:
    [[nodiscard]] std::optional<Binding> bindingIn(std::string_view line) const override;
    [[nodiscard]] std::string ourLine() const override;

  private:
    std::string m_script;
};

/// GTK's accelerator map, as Thunar and Nemo keep it:
/// (gtk_accel_path "<Actions>/…" "<Primary>BackSpace"). A comment states a default, no binding.
class AcceleratorMap : public LineAccelerators {
  public:
    explicit AcceleratorMap(std::string path) : m_path(std::move(path)) {}

    /// The path of Nemo's action for a script.
    static std::string pathOfNemoScript(const Path& script);

  protected:
    [[nodiscard]] std::optional<Binding> bindingIn(std::string_view line) const override;
    [[nodiscard]] std::string ourLine() const override;

  private:
    std::string m_path;
};

} // namespace vexmoor
