#include "files/dxf/dxf_text.h"

std::string smallDrawing(std::string_view version)
{
    std::string text = "999\nA comment that stays\n  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\n";
    text += version;
    text += "\n  9\n$DWGCODEPAGE\n  3\nANSI_1258\n  9\n$HANDSEED\n  5\n40\n  9\n$CLAYER\n  8\n0\n  0\nENDSEC\n";
    text += "  0\nSECTION\n  2\nTABLES\n"
            "  0\nTABLE\n  2\nLAYER\n  5\n2\n330\n0\n100\nAcDbSymbolTable\n 70\n1\n"
            "  0\nLAYER\n  5\n10\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n  2\n0\n 70\n0\n"
            " 62\n7\n  6\nCONTINUOUS\n  0\nENDTAB\n"
            "  0\nTABLE\n  2\nBLOCK_RECORD\n  5\n1\n330\n0\n100\nAcDbSymbolTable\n 70\n2\n"
            "  0\nBLOCK_RECORD\n  5\n1F\n330\n1\n100\nAcDbSymbolTableRecord\n100\nAcDbBlockTableRecord\n  2\n"
            "*Model_Space\n340\n0\n"
            "  0\nBLOCK_RECORD\n  5\n1B\n330\n1\n100\nAcDbSymbolTableRecord\n100\nAcDbBlockTableRecord\n  2\n"
            "*Paper_Space\n340\n0\n  0\nENDTAB\n  0\nENDSEC\n";
    text += "  0\nSECTION\n  2\nBLOCKS\n"
            "  0\nBLOCK\n  5\n20\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockBegin\n  2\n*Model_Space\n 70\n0\n"
            " 10\n0.0\n 20\n0.0\n 30\n0.0\n  3\n*Model_Space\n  1\n\n"
            "  0\nENDBLK\n  5\n21\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockEnd\n"
            "  0\nBLOCK\n  5\n1C\n330\n1B\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockBegin\n  2\n*Paper_Space\n 70\n0\n"
            " 10\n0.0\n 20\n0.0\n 30\n0.0\n  3\n*Paper_Space\n  1\n\n"
            "  0\nENDBLK\n  5\n1D\n330\n1B\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockEnd\n  0\nENDSEC\n";
    text += "  0\nSECTION\n  2\nENTITIES\n"
            "  0\nLINE\n  5\n30\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n1.50000\n 20\n2.0\n 30\n0.0\n"
            " 11\n3.0\n 21\n4.0\n 31\n0.0\n"
            "  0\nLWPOLYLINE\n  5\n31\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbPolyline\n 90\n2\n 70\n0\n 10\n0.0\n"
            " 20\n0.0\n 10\n5.0\n 20\n5.0\n1001\nSV_INFOR\n1002\n{\n1000\nMUONG\n1002\n}\n"
            "  0\nMYSTERY\n  5\n32\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbMystery\n 90\n3\n300\n  kept \n"
            "  0\nENDSEC\n";
    text += "  0\nSECTION\n  2\nOBJECTS\n"
            "  0\nDICTIONARY\n  5\nC\n330\n0\n100\nAcDbDictionary\n281\n1\n  0\nENDSEC\n  0\nEOF\n";
    return text;
}
