// Opens and saves models with web-ifc, block by block from and to files, in one thread.

import { closeSync, openSync, readSync, writeSync } from "node:fs";
import * as WebIFC from "web-ifc";

/** An initialised interface; compiling its WebAssembly module takes a part of a second. */
export async function startWebIfc() {
  const api = new WebIFC.IfcAPI();
  await api.Init(undefined, true);
  api.SetLogLevel(WebIFC.LogLevel.LOG_LEVEL_OFF);
  return api;
}

/** The handle of the model in the file; throws when web-ifc cannot open it. */
export function openModel(api, path) {
  const file = openSync(path, "r");
  let block = Buffer.alloc(0);
  try {
    const model = api.OpenModelFromCallback((offset, size) => {
      if (block.length < size) block = Buffer.alloc(size);
      return block.subarray(0, readSync(file, block, 0, size, offset));
    });
    if (model < 0) throw new Error(`web-ifc cannot open ${path}`);
    return model;
  } finally {
    closeSync(file);
  }
}

export function saveModel(api, model, path) {
  const file = openSync(path, "w");
  try {
    api.SaveModelToCallback(model, (block) => {
      for (let written = 0; written < block.length; )
        written += writeSync(file, block, written);
    });
  } finally {
    closeSync(file);
  }
}

/** The numbers of all instances of a type, subtypes included when asked for. */
export function* instancesOf(api, model, type, withSubtypes = false) {
  const numbers = api.GetLineIDsWithType(model, type, withSubtypes);
  for (let i = 0; i < numbers.size(); ++i) yield numbers.get(i);
}
