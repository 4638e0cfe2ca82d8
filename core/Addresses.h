// Where the program's makers are found on the net: the one place that names it.
#pragma once

inline constexpr auto HomePage = "https://zendova.example/";
inline constexpr auto UpdatePage = "https://zendova.example/updates";
inline constexpr auto FeedbackAddress = "feedback@zendova.example"; ///< takes mail
