#include "catalogue.h"

#include <array>

std::span<const LineFeature> LineFeatures()
{
    using enum LineClass;
    using enum Shape;
    static constexpr std::array<LineFeature, 24> kFeatures{{
        {u"MÐp ®\u00ADêng", Light, Parallel, "DUONG", -3.5, "MepDuong"},
        {u"MÐp ®\u00ADêng", Light, Parallel, "DUONG", 3.5, "MepDuong"},
        {u"R·nh", Light, Parallel, "THUY_HE", 5.1, "MuongXay"},
        {u"Ch©n taluy", Line3d, Along, "TALUY", -7.5, "TaLuy"},
        {u"§Ønh taluy", Line3d, Along, "TALUY", 8.5, "TaLuy"},
        {u"D©y ®iÖn", Line3d, Along, "DIEN", -11, "CotDienTrungThe"},
        {u"C¸p quang", Line3d, Along, "DIEN", 10.5, ""},
        {u"M\u00AD¬ng", Heavy2d, Along, "THUY_HE", 17, "MuongDat"},
        {u"Hµng rµo", Line3d, Piece, "NHA", 0, "HangRaoCay"},
        {u"T\u00ADêng x©y", Light, Piece, "NHA", 0, "HangRaoXay"},
        {u"Nhµ", Light, House, "NHA", 0, "NhaO"},
        {u"Ao", Light, Pond, "THUY_HE", 0, "MucNuoc"},
        {u"Bê ruéng", Heavy2d, Parcel, "THUC_VAT", 0, "RuongLua"},
        {u"§\u00ADêng mßn", Heavy2d, Crossing, "DUONG", 0, "DuongMon"},
        {u"CONG", Light, Crossing, "THUY_HE", 0, "DauCong"},
        {u"Hµng rµo", Light, Piece, "NHA", 0, "HangRaoCay"},
        {u"Nhµ", Light, House, "NHA", 0, "NhaO"},
        {u"V\u00ADên", Line3d, Parcel, "THUC_VAT", 0, "CayAnQua"},
        {u"Bê ruéng", Heavy2d, Piece, "THUC_VAT", 0, "RuongLua"},
        {u"M\u00AD¬ng", Line3d, Crossing, "THUY_HE", 0, "MuongDat"},
        {u"Nhµ", Heavy2d, House, "NHA", 0, "NhaO"},
        {u"T\u00ADêng x©y", Heavy2d, Piece, "NHA", 0, "HangRaoXay"},
        {u"Bê ruéng", Light, Parcel, "THUC_VAT", 0, "RuongLua"},
        {u"ONG NUOC", Light, Crossing, "DIEN", 0, "VanNuoc"},
    }};
    return kFeatures;
}

std::span<const PointCode> PointCodes()
{
    static constexpr std::array<PointCode, 16> kCodes{{
        {u"", u"", ""},
        {u"CAY", u"CAY", "CayLaRong"},
        {u"Cột điện", u"Cét ®iÖn", "CotDienHaThe"},
        {u"CỘT ĐIỆN", u"Cét ®iÖn", "CotDienHaThe"},
        {u"Cột đèn", u"Cét ®Ìn", "DenDuong"},
        {u"Giếng", u"GiÕng", "GiengNuoc"},
        {u"Mộ", u"Mé", "MoMa"},
        {u"Biển báo", u"BiÓn b¸o", "BienTamGiac"},
        {u"Hố ga", u"Hè ga", "HoGaThoatNuoc"},
        {u"Tre", u"Tre", "BuiTre"},
        {u"COC_H", u"COC_H", "CocH"},
        {u"COC_KM", u"COC_KM", "CotKm"},
        {u"MOC_TD", u"MOC_TD", "DiemKhongChe"},
        {u"Trụ cứu hỏa", u"Trô cøu háa", "TruCuuHoa"},
        {u"NHA", u"NHA", "NhaO"},
        {u"LK", u"LK", ""},
    }};
    return kCodes;
}

std::span<const PointCode> RoadCodes()
{
    static constexpr std::array<PointCode, 5> kCodes{{
        {u"DC1", u"DC1", "BoVia"},
        {u"DC2", u"DC2", "BoVia"},
        {u"DC_T", u"DC_T", "BoVia"},
        {u"DC_P", u"DC_P", "BoVia"},
        {u"TIM", u"TIM", "CocTim"},
    }};
    return kCodes;
}

std::span<const PointCode> EdgeCodes()
{
    static constexpr std::array<PointCode, 2> kCodes{{
        {u"MT1", u"MT1", "MepDuong"},
        {u"MP1", u"MP1", "MepDuong"},
    }};
    return kCodes;
}

std::span<const CodedBlock> CodedBlocks()
{
    static constexpr std::array<CodedBlock, 4> kBlocks{{
        {"COT_DIEN", u"Cét ®iÖn", "CotDienHaThe"},
        {"COT_DEN", u"Cét ®Ìn", "DenDuong"},
        {"CAY_TO", u"C©y to", "CayLaRong"},
        {"HO_GA", u"Hè ga", "HoGaThoatNuoc"},
    }};
    return kBlocks;
}
