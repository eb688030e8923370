#pragma once

#include <string>
#include <vector>

class AcDbDatabase;

namespace files
{

/// A piece of the file's text and what is to stand there. An empty piece is a place to insert at.
struct ClassEdit
{
    const char* begin;
    const char* end;
    std::string text;
};

/// The list of a drawing of a version that has no objects of our own classes yet, as pairs.
std::string listOfClasses(int version);

/// What has to change in the list of classes (the CLASSES section) of a drawing to which objects of classes of our own
/// were added, or from which they were erased: a class that is missing, a count. Nothing for any other drawing.
std::vector<ClassEdit> classEdits(AcDbDatabase& database);

} // namespace files
