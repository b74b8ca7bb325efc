#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace velmo
{

/// Why something did not work: the system's own number (a Windows error code, 12xxx for the
/// internet's) and a sentence for the log or for a person.
struct Error
{
    std::int32_t code = 0;
    std::string description;
};

/// The value of a step that succeeds, for steps that yield none.
struct Done
{};

/// Either a value or the Error that stands in its place.
template <typename T>
class [[nodiscard]] Result
{
  public:
    Result(T value) : m_content(std::move(value)) {}
    Result(Error error) : m_content(std::move(error)) {}

    [[nodiscard]] bool Ok() const { return std::holds_alternative<T>(m_content); }
    explicit operator bool() const { return Ok(); }

    /// The value. Only when Ok().
    [[nodiscard]] const T& Value() const& { return std::get<T>(m_content); }
    [[nodiscard]] T&& Value() && { return std::get<T>(std::move(m_content)); }

    /// The error. Only when not Ok().
    [[nodiscard]] const Error& Failure() const { return std::get<Error>(m_content); }

  private:
    std::variant<T, Error> m_content;
};

} // namespace velmo
