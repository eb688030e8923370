#include "desktop/language/vietnamese.h"

namespace desktop
{

namespace
{

constexpr Translation kTexts[] = {
    {"&Close", "Đó&ng"},
    {"&Dark or light", "Nền &tối / sáng"},
    {"&File", "&Tệp"},
    {"&Open…", "&Mở…"},
    {"&Quit", "&Thoát"},
    {"&View", "&Xem"},
    {"%1 was changed. Save the changes?", "%1 đã thay đổi. Có lưu các thay đổi không?"},
    {"A copy, converted from DWG: saved, it becomes a DXF", "Bản sao chuyển từ DWG: khi lưu sẽ thành tệp DXF"},
    {"All files", "Mọi tệp"},
    {"Cancel", "Hủy"},
    {"Close", "Đóng"},
    {"Don't save", "Không lưu"},
    {"Drawings", "Bản vẽ"},
    {"Model", "Mô hình"},
    {"None yet", "Chưa có"},
    {"Open &recent", "Mở &gần đây"},
    {"Open a drawing (Ctrl+O), or drop one here", "Mở bản vẽ (Ctrl+O), hoặc kéo thả tệp vào đây"},
    {"Open drawings", "Mở bản vẽ"},
    {"Reading %1 …", "Đang đọc %1 …"},
    {"Reading was cancelled", "Đã hủy việc đọc"},
    {"Save", "Lưu"},
    {"Save changes?", "Lưu thay đổi?"},
    {"Something is being done already", "Đang làm việc khác"},
    {"The drawing could not be opened", "Không mở được bản vẽ"},
    {"There is not enough memory.", "Không đủ bộ nhớ."},
    {"Zoom to &all", "Thu phóng &toàn bộ"},
};

} // namespace

std::span<const Translation> vietnameseTexts()
{
    return kTexts;
}

} // namespace desktop
