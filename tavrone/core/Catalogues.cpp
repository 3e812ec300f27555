#include "tavrone/core/Catalogues.h"

#include "tavrone/core/ResourceBundle.h"

namespace tavrone {
namespace {

// clang-format off
constexpr CatalogueRow RUNTIME_ROWS[] = {
    {"SRT100", "SRT00", "Not a valid trigger class - ''{0}''."},
    {"SRT101", "SRT01", "Error creating trigger instance"},
    {"SRT102", "SRT02", "Error instantiating trigger"},
    {"SRT103", "SRT03", "Error deleting batch context"},
    {"SRT104", "SRT04", "Error creating  batch context"},
    {"SRT105", "SRT05", "Error deleting output context"},
    {"SRT106", "SRT06", "Error creating  output context"},
    {"SRT107", "SRT07", "Output context not available. The client does not expect output to be created in the TransformContext. Use TransformContext.createOutputContext() to create output context."},
    {"SRT110", "SRT08", "Remote exception ''{0}''"},
    {"SRT111", "SRT09", "NamingException ''{0}''"},
    {"SRT112", "SRT10", "Unexpected number of parameters for {0} query. Expected {1} found {2}."},
    {"SRT113", "SRT11", "No persistence manager for the internal message. To use PersistenceTrigger you must add a peristence manager to the internal message."},
    {"SRT114", "SRT12", "Nothing to execute."},
    {"SRT120", "SRT13", "Cannot convert ''{0}'' to date(format = ''{1}'')."},
    {"SRT121", "SRT14", "Cannot convert ''{0}'' to double."},
    {"SRT122", "SRT15", "Cannot convert ''{0}'' to integer."},
    {"SRT123", "SRT16", "Cannot convert ''{0}'' to long."},
    {"SRT124", "SRT17", "Cannot convert ''{0}'' to boolean."},
    {"SRT125", "SRT18", "Cannot convert ''{0}'' to float."},
    {"SRT126", "SRT19", "Cannot convert ''{0}'' to char."},
    {"SRT127", "SRT20", "Cannot convert ''{0}'' to ''{1}''."},
    {"SRT128", "SRT21", "Null value error while parsing a field."},
    {"SRT129", "SRT22", "Field ''{0}'' cannot be null."},
    {"SRT130", "SRT23", "Unrecoginized input format data ''{0}''."},
    {"SRT131", "SRT24", "Error while parsing."},
    {"SRT132", "SRT25", "''{0}'' is not a section."},
    {"SRT150", "SRT26", "Error setting up XML parser."},
    {"SRT151", "SRT27", "Error parsing XML."},
    {"SRT152", "SRT28", "IO error while parsing XML."},
    {"SRT160", "SRT29", "Out of bounds."},
    {"SRT161", "SRT30", "Section index out of bound, size = ''{0}'', index accessed = ''{1}''."},
    {"SRT162", "SRT31", "Error accessing element of section ''{0}''. Section index out of bounds, size = 0 , index accessed = ''{1}''."},
    {"SRT163", "SRT32", "Index out of bounds ''{0}''."},
    {"SRT164", "SRT33", "Field at index ''{0}'' not defined."},
    {"SRT165", "SRT34", "Field with name ''{0}'' not defined."},
    {"SRT175", "SRT35", "Unexpected object for section ''{0}'' when a list is expected ''{1}''."},
    {"SRT176", "SRT36", "Error converting field value"},
    {"SRT177", "SRT37", "Collection index out of bound, size = ''{0}'', index accessed = ''{1}''."},
    {"SRT178", "SRT38", "No section with name ''{0}''."},
    {"SRT185", "SRT39", "Error instantiating custom class instance ''{0}''. The class does not implement ''{1}''."},
    {"SRT186", "SRT40", "Error creating custom class instance - ''{0}''"},
    {"SRT187", "SRT41", "Error instantiating custom class instance - ''{0}''"},
    {"SRT201", "SRT42", "Validation ''{0}'' failed. Field ''{1}'' is not valid."},
    {"SRT202", "SRT43", "Validation ''{0}'' failed. Unrecognized Field."},
    {"SRT210", "SRT44", "RouterTrigger: Output format is not configured (null)."},
    {"SRT211", "SRT45", "Unable to look up output format with name ''{0}''"},
    {"SRT212", "SRT46", "Unable to look up business transaction with name ''{0}''"},
    {"SRT215", "SRT47", "Non batched output format should have a non-batched output writer."},
    {"SRT216", "SRT48", "Unexpected runtime error. ''{0}''."},
    {"SRT217", "SRT49", "Unexpected remote error. ''{0}''."},
    {"SRT220", "SRT50", "Unable to look up datasource ''{0}''."},
    {"SRT221", "SRT51", "RemoteException while looking up datasource."},
    {"SRT222", "SRT52", "Unexpected error - connection not available."},
    {"SRT223", "SRT53", "Unable to find internal message for the given primary key. Object not found in database."},
    {"SRT224", "SRT54", "Unable to find internal message. Constraint violation, more than one record matches a primary key."},
    {"SRT225", "SRT55", "No query by name ''{0}'' defined."},
    {"SRT226", "SRT56", "Error connecting to database."},
    {"SRT250", "SRT57", "''output.protocol'' not specified. This property must be available in the TransformContext to process the message."},
    {"SRT251", "SRT58", "Unable to look up output.protocol with name ''{0}''"},
    {"SRT252", "SRT59", "''{0}'' not specified. This property must be available in the TransformContext to process the message."},
    {"SRT253", "SRT60", "Unknown object format. Output is not a string."},
    {"SRT275", "SRT61", "Unable to lookup business transaction bean ''{0}''. ''{1}''."},
    {"SRT276", "SRT62", "The format of input is not recognized."},
    {"SRT277", "SRT62", "Unexpected error"},
    {"SRT300", "SRT63", "Missing mandatory section ''{0}''."},
    {"SRT301", "SRT64", "The number of elements in the section ''{0}'' is less than ''{1}''."},
    {"SRT302", "SRT65", "The number of elements ({0}) in the section ''{1}'' is greater than {2}."},
    {"SRT325", "SRT66", "Error persisting normalized object."},
    {"SRT326", "SRT67", "Unable to lookup persistence manager ''{0}''"},
    {"SRT350", "SRT68", "Batched output format should have a batched output writer."},
    {"SRT400", "SRT69", "Unable to look up output.format name ''{0}''."},
    {"SRT425", "SRT70", "Unknown object output format - ''{0}''."},
    {"SRT426", "SRT71", "Error writing to device"},
    {"SRT427", "SRT72", "Error closing device."},
    {"SRT450", "SRT73", "Processing error in trigger : ''{0}''"},
    {"SRT451", "SRT74", "Data format exception."},
    {"SRT452", "SRT75", "Error initializing InternalRoutingTrigger."},
    {"SRT453", "SRT76", "Error initializing section ''{0}''. ''{1}''."},
    {"SRT454", "SRT77", "Error initializing section. ''{0}'', ''{1}''"},
    {"SRT455", "SRT78", "Index fo the field ''{0}'' is already set."},
    {"SRT456", "SRT79", "Error initializing output device"},
    {"SRT457", "SRT80", "Unexpected encoding exception."},
    {"SRT500", "SRT81", "Attempt to access field ''{0}'' with null value"},
    {"SRT501", "SRT82", "''{0}'' has null value"},
    {"SRT550", "SRT83", "Ill-formed field value."},
    {"SRT551", "SRT84", "Invalid code."},
    {"SRT552", "SRT85", "'{0}'"},
    {"SRT553", "SRT86", "Error creating statement."},
    {"SRT554", "SRT87", "Error executing sql statement ''{0}''"},
    {"SRT555", "SRT88", "No records in the resultset"},
    {"SRT556", "SRT89", "No more records in the resultset"},
    {"SRT557", "SRT90", "Error accessing field at index ''{0}''"},
    {"SRT558", "SRT91", "Error accessing field ''{0}''"},
    {"SRT559", "SRT92", "Error moving result set "},
    {"SRT560", "SRT93", "No records selected for query ''{0}''"},
    {"SRT561", "SRT94", "Error executing query ''{0}''"},
    {"SRT562", "SRT95", "Date parsing error. ''{0}'' not in expected format (Jan 25, 2002)"},
    {"SRT563", "SRT96", "Date parsing error. ''{0}'' not in expected format ''{1}''"},
    {"SRT564", "SRT97", "Formula execution error {0}"},
    {"SRT565", "SRT98", "Error creating connection pool ''{0}''"},
    {"SRT566", "SRT99", "Error looking up internal message ''{0}''"},
    {"SRT567", "SRT100", "The arguments number and significance are of different signs"},
    {"SRT568", "SRT101", "The significance is zero"},
    {"SRT569", "SRT102", "The arguments cannot be negative or zero"},
    {"SRT570", "SRT103", "The argument cannot be negative or zero"},
    {"SRT571", "SRT104", "The argument cannot be negative"},
    {"SRT572", "SRT105", "Invalid regular expression syntax ''{0}''"},
    {"SRT573", "SRT106", "Elements cannot be removed from this section view."},
    {"SRT574", "SRT107", "Elements cannot be added to this section view."},
    {"SRT575", "SRT108", "One of the joined sections is empty."},
    {"SRT576", "SRT109", "Error computing section element at {0}. {1}"},
    {"SRT577", "SRT110", "No field with name {0} defined in collection/section "},
    {"SRT578", "SRT111", "No field with index {0} defined in collection/section "},
    {"SRT580", "SRT113", "''{0}'' is not of specified type"},
    {"SRT581", "SRT114", "Unexpected error during formula evaluation."},
    {"SRT582", "SRT115", "If nested fields are used, all of them should be from the same section (or from its ancestor section)."},
    {"SRT583", "SRT116", "No persistence manager defined for {0}"},
    {"SRT584", "SRT117", "Error executing query"},
    {"SRT585", "SRT118", "Error transforming internal message"},
    {"SRT586", "SRT119", "Max value is not initialized"},
    {"SRT587", "SRT120", "Min value is not initialized."},
    {"SRT600", "SRT121", "Not-null check failed. The field ''{0}'' has null value"},
};

constexpr CatalogueRow UNIVERSAL_ROWS[] = {
    {"UNV100", "UNV00", "Not enough characters. Required ''{0}'' , available ''{1}''."},
    {"UNV101", "UNV01", "Section tag ''{0}'' expected. Found ''{1}''."},
    {"UNV102", "UNV02", "Section tag separator ''{0}'' expected. Found ''{1}''."},
    {"UNV103", "UNV03", "Missing delimiter ''{0}''"},
    {"UNV104", "UNV04", "Illegal integral length - ''{0}''"},
    {"UNV105", "UNV05", "The sign byte in a packed decimal should be one of 'D', 'C' or 'F'. Found ''{0}''."},
    {"UNV106", "UNV06", "Unexpected characters at the end of message."},
    {"UNV107", "UNV07", "Unexpected characters at the end of sequence."},
    {"UNV108", "UNV08", "Unexpected characters at the end of section ''{0}''."},
    {"UNV109", "UNV09", "Tag ''{0}'' expected in ''{1}''."},
    {"UNV110", "UNV10", "Tag-value Separator ''{0}'' expected in ''{1}''."},
    {"UNV111", "UNV11", "Illegal boolean value ''{0}''."},
    {"UNV112", "UNV12", "Illegal boolean value, it can''t be empty."},
    {"UNV113", "UNV13", "Unexpected ''.'' character while parsing floating point field."},
    {"UNV114", "UNV14", "Float field''s value ''{0}'' is not in specified format ''{1}''."},
    {"UNV115", "UNV15", "Double field''s value ''{0}'' is not in specified format ''{1}''."},
    {"UNV116", "UNV16", "Parsing individual records is not supported in this version."},
    {"UNV117", "UNV17", "The length of the length preceded field ({0}) is less than the minimum length ({1})."},
    {"UNV118", "UNV18", "The length of the length preceded field ({0}) exceeds the maximum length ({1}) allowed."},
    {"UNV119", "UNV19", "Mandatory field ''{0}'' is missing"},
    {"UNV120", "UNV20", "Duplicate field ''{0}''."},
    {"UNV121", "UNV21", "Duplicate field ''{0}'' [''{1}'']."},
    {"UNV122", "UNV22", "Incorrect filler value. Expected ''{0}'' , found ''{1}''."},
    {"UNV123", "UNV23", "Missing choice element ''{0}''. None of choices match with the message."},
    {"UNV124", "UNV24", "The mandatory field ''{0}'' is missing."},
    {"UNV125", "UNV25", "Record size (''{0}'') exceeded upper limit - ''{1}''."},
    {"UNV126", "UNV26", "Cannot represent ''{0}'' in ''{1}'' digits."},
    {"UNV127", "UNV27", "Cannot represent ''{0}'' in ''{1}'' characters."},
    {"UNV128", "UNV28", "Cannot represent output value ''{0}''."},
    {"UNV129", "UNV29", "Packed decimal overflow."},
    {"UNV130", "UNV30", "More than one choice has a non-null value"},
    {"UNV131", "UNV31", "At least one of the choices must have non-null value"},
};
// clang-format on

// The texts and their keys are static, so the bundle keeps them as they are.
ResourceBundle const &makeBundle(Catalogue const &catalogue) {
  auto &bundle = *new PropertyResourceBundle;
  for (CatalogueRow const &row : catalogue.rows) {
    bundle.addProperty(tvstringliteral(row.codeKey.data()), tvstringliteral(row.code));
    bundle.addProperty(tvstringliteral(row.messageKey.data()), tvstringliteral(row.message));
  }
  return bundle;
}

// Fills the default resources while the library loads, unless somebody asked for them earlier.
[[maybe_unused]] Resources const &loaded = Resources::getDefaultResources();

}  // namespace

constinit Catalogue const RuntimeResources = {"RuntimeResources", RUNTIME_ROWS};
constinit Catalogue const UniversalResources = {"UniversalResources", UNIVERSAL_ROWS};

void registerCatalogues(Resources &resources) {
  for (Catalogue const *catalogue : {&RuntimeResources, &UniversalResources}) {
    resources.addResourceBundle(tvstringliteral(catalogue->name), makeBundle(*catalogue));
  }
}

}  // namespace tavrone
