#ifndef QUOR_MODULE_IDENTIFIERS_H
#define QUOR_MODULE_IDENTIFIERS_H

#include <guiddef.h>

namespace quor {

// The add-in's identifiers. They are in users' registries and therefore never change. The
// registration scripts and the .idl file contain the same values.

// {DA593EC2-67C4-4602-B30E-3FEC47C1C55A}: the add-in's class, QuorTelephoneToolbar.Addin.
inline constexpr GUID kAddinClsid = {
    0xDA593EC2, 0x67C4, 0x4602, {0xB3, 0x0E, 0x3F, 0xEC, 0x47, 0xC1, 0xC5, 0x5A}};

// {619B3283-8326-4895-A4F2-E3881DC00D2D}: the options page's class,
// QuorTelephoneToolbar.PropPage.
inline constexpr GUID kPropertyPageClsid = {
    0x619B3283, 0x8326, 0x4895, {0xA4, 0xF2, 0xE3, 0x88, 0x1D, 0xC0, 0x0D, 0x2D}};

// {FFD90401-3D40-42C8-BB82-613B490AE13D}: the type library, version 1.0.
inline constexpr GUID kTypeLibraryId = {
    0xFFD90401, 0x3D40, 0x42C8, {0xBB, 0x82, 0x61, 0x3B, 0x49, 0x0A, 0xE1, 0x3D}};

// The build makes "module/quor_telephone_toolbar.h" from the .idl file in this folder. It declares
// the library's interfaces with their ids (__uuidof): ITelephoneAddin
// {F80C9839-FE47-41D7-874E-5C8CF6E3F860} and ITelephonePropertyPage
// {984DCD36-1C9B-4D34-A6D0-289B61953B5F}.

}  // namespace quor

#endif
