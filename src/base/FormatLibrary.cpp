// The parts of fmt that are no templates, and the templates that its headers expect elsewhere.
#include <fmt/format-inl.h>

template auto fmt::detail::dragonbox::to_decimal(float) noexcept -> decimal_fp<float>;
template auto fmt::detail::dragonbox::to_decimal(double) noexcept -> decimal_fp<double>;
template auto fmt::detail::thousands_sep_impl<char>(locale_ref) -> thousands_sep_result<char>;
template auto fmt::detail::decimal_point_impl<char>(locale_ref) -> char;
