#pragma once

#include "integration/AcceleratorText.h"

namespace vexmoor {

/// A file with one binding per line. Our line is inserted first: a last line without a line break
/// stays unchanged, and readers that stop at an invalid line still read ours.
class LineAccelerators : public AcceleratorText {
  public:
    [[nodiscard]] std::optional<AcceleratorStatus> status(const std::string& text) const override;
    [[nodiscard]] std::string with(const std::string& text) const override;
    [[nodiscard]] std::string without(const std::string& text) const override;

  protected:
    /// Returns the line's binding, or nullopt for a comment or any other line.
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

/// GTK's accelerator map, which Thunar and Nemo use: (gtk_accel_path "<Actions>/…"
/// "<Primary>BackSpace"). A commented line is a default, not a binding.
class AcceleratorMap : public LineAccelerators {
  public:
    explicit AcceleratorMap(std::string path) : m_path(std::move(path)) {}

    /// Returns the accelerator path of Nemo's action for a script.
    static std::string pathOfNemoScript(const Path& script);

  protected:
    [[nodiscard]] std::optional<Binding> bindingIn(std::string_view line) const override;
    [[nodiscard]] std::string ourLine() const override;

  private:
    std::string m_path;
};

} // namespace vexmoor
