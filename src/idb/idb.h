#ifndef ORV_IDB_IDB_H
#define ORV_IDB_IDB_H

#include <idb/idb_AgentBlob.h>
#include <idb/idb_AgentProxy.h>
#include <idb/idb_Dump.h>
#include <idb/idb_MementoRead.h>
#include <idb/idb_MementoWrite.h>
#include <idb/idb_ReadListObj.h>
#include <idb/idb_ReadListPrim.h>
#include <idb/idb_ReadMapObj.h>
#include <idb/idb_ReadMapPrim.h>
#include <idb/idb_ReadObject.h>
#include <idb/idb_WriteListObj.h>
#include <idb/idb_WriteListPrim.h>
#include <idb/idb_WriteMapObj.h>
#include <idb/idb_WriteMapPrim.h>
#include <idb/idb_WriteObject.h>

#endif
