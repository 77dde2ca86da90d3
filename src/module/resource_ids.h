// Ids of the registration scripts in the resources, of type "REGISTRY". Used by resource scripts
// and C++.
#ifndef QUOR_MODULE_RESOURCE_IDS_H
#define QUOR_MODULE_RESOURCE_IDS_H

#define IDR_REGISTRATION_ADDIN 101
#define IDR_REGISTRATION_PROPERTY_PAGE 102

#endif
