// Opening an XML file in a program that shows, edits and saves it: AfxLoadXMLFile with what its
// callers would add each for themselves. Any thread; the document belongs to the caller's.
#pragma once

#include <quorvel/frame/lengthy_operation.h>
#include <quorvel/xml/markup.h>

// Loads the file as AfxLoadXMLFile does (xml_file.h), and beyond that
// - reads a file with neither declaration nor byte order mark as UTF-8, as XML says;
// - declares the encoding of a UTF-16 file in the document, so that it is saved in that again;
// - begins `errorText` with line and column, "3:8: mismatched tag", where the file is not
//   well-formed.
// TRUE on success. Otherwise `errorText` says why, and the document may have changed: load into
// another one and swap. A handler that throws ends the loading with FALSE and the exception's text.
QUORVEL_API BOOL AfxOpenXMLFile(const WCHAR* fileName, CMarkup& markup, CString& errorText,
                                CLengthyOperationHandler* handler = nullptr);

// Whether AfxSaveXMLFile writes the encoding that the document declares.
QUORVEL_API BOOL AfxCanSaveXMLEncoding(const CMarkup& markup);
