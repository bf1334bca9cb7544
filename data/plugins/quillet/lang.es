# Quillet, Español. UTF-8; one key=text a line. Keys are the same in all languages. In a text \n is a
# line end and \\ a backslash. Lines that begin with # are comments.

# Ribbon
group.quillet=Quillet
Quillet=Quillet
btn_edit=Editar propiedades
btn_edit.hint=Añadir, cambiar y eliminar conjuntos de propiedades y propiedades de los objetos seleccionados.
add_property_set=Añadir conjunto de propiedades
edit_many=Editar varios objetos
btn_export=Exportar
btn_export.hint=Escribir los archivos IFC cargados con todos los cambios como archivos nuevos.
open_recent_created_file_button_name=Abrir la última exportación
open_recent_created_file_button_description=Abrir el último archivo exportado.
options=Opciones
option_ignore_enume_errors=Ignorar los valores de enumeración desconocidos
option_erase_white_signs=Borrar los espacios alrededor de nombres y valores
lbl.merge_prop_sets=Combinar los conjuntos de propiedades del mismo nombre

# Progress
progress_bar_overall_progrss=Progreso total
progress_bar_loading=Cargando ...
progress_bar_deleting=Eliminando ...
progress_bar_saving=Guardando:
progress_dialog_name=Exportación
overall_progress=Progreso total
current_progress=Progreso actual
reading_file=Leyendo:

# Selection and flows
select_one_object=Seleccione un solo objeto.
no_object_selected_message=No hay ningún objeto seleccionado.
fail_to_open_last_created_file_message=No se pudo abrir el último archivo exportado.
property_already_exists_update=Ya existe una propiedad con este nombre. ¿Desea reemplazarla?
window_not_available=La ventana de edición no está disponible en este sistema.
no_screen=No hay ninguna pantalla en la que mostrar ventanas. Inicie el programa en una sesión gráfica.
UnableToAddProperty=No se puede añadir la propiedad.
UnableToEditProperty=No se puede cambiar la propiedad.
UnableToDeleteProperty=No se puede eliminar la propiedad.
UnableToAddPropertySet=No se puede añadir el conjunto de propiedades.
UnableToEditPropertySet=No se puede cambiar el nombre del conjunto de propiedades.
UnableToDeletePropertySet=No se puede eliminar el conjunto de propiedades.
object_not_in_file=El objeto no procede de ningún archivo IFC cargado y no se puede editar.
type_object_not_editable=Los conjuntos de propiedades de los tipos no se pueden editar: pertenecen a todos los objetos del tipo.
set_not_editable=La forma de este conjunto está fijada por el esquema IFC y no se puede editar.
set_guid_missing=No se ha indicado el GUID del conjunto de propiedades
property_not_editable=Solo se pueden editar valores simples y cantidades.
set_name_missing=Introduzca un nombre para el conjunto de propiedades.
set_name_taken=El objeto ya tiene un conjunto de propiedades con este nombre.
property_name_missing=Introduzca un nombre para la propiedad.
property_name_taken=El conjunto ya tiene una propiedad con este nombre.
value_missing=Introduzca un valor. Para quitar un valor, elimine la propiedad.
value_is_no_number=El valor debe ser un número, con un punto delante de los decimales.
value_is_no_integer=El valor debe ser un número entero.
value_is_no_truth_value=El valor debe ser sí o no.
value_is_no_logical=«{1}» no es un {2}. Se espera: sí, no o desconocido (yes, no, unknown)
value_out_of_range=«{1}» no es un {2}. Se espera: un número {3}
value_is_no_time=«{1}» no es un {2}. Se espera (ISO 8601): {3}
value_is_no_text=Un valor de tipo {2} no se puede introducir como texto: «{1}»
unknown_quantity_type=Elija un tipo de cantidad.
unknown_unit=La unidad no pertenece al SI. Elija una de la lista.
unit_not_of_si=«{1}» no es una unidad del SI. Introduzca el valor en {2}.
unit_not_of_quantity=Esta unidad no mide una cantidad de ese tipo. Elija metros cuadrados para áreas, metros para longitudes, metros cúbicos para volúmenes, gramos para pesos, segundos para tiempos, con cualquier prefijo, y ninguna para recuentos.
type_without_unit={2} no tiene unidad del SI y «{1}» no lo mide.
unit_missing=Elija una unidad. Para quitar una unidad, elimine la propiedad y añádala de nuevo.

# Property window
propertyWindowName=Propiedad
editPropertySet=Cambiar el nombre del conjunto de propiedades
setLabel=Conjunto de propiedades
propertySetNameMessage=Nombre del conjunto de propiedades
propertyNameMessage=Nombre de la propiedad
propertyData=Datos de la propiedad
valueLabel=Valor
unitLabel=Unidad
quantityTypeLabel=Tipo de cantidad
yes=Sí
no=No
btnOkName=Aceptar
btnCancelName=Cancelar
btnCloseName=Cerrar

# Export
no_file_selected_message=No hay ningún modelo cargado.
no_active_project_caption=Exportación
no_active_project_massage=No hay ningún archivo IFC que exportar.
filter_caption=Archivos IFC
files_already_exists_caption=Reemplazar archivos
files_already_exists_message=Algunos de los archivos ya existen. ¿Desea reemplazarlos?
continue_question=¿Continuar leyendo?
files_generated_with_warning_msg=Los archivos se escribieron, pero hubo problemas. ¿Desea ver el registro?
error_show_log_question=No se pudo escribir ningún archivo. ¿Desea ver el registro?
could_not_open_file=No se pudo abrir el archivo
could_not_open_file_extension=No se pueden abrir archivos con esta extensión:
could_not_open_file_write=No se pudo escribir el archivo.
file_in_use=Otro programa tiene abierto el archivo.
file_access_denied=Acceso denegado al archivo o a su carpeta.
file_folder_missing=La carpeta no existe.
file_disk_full=El disco está lleno.
file_other_trouble=El sistema indica:
unknown_schema_identifier=El esquema no es ninguno de los que se pueden leer:

# Edit-many window
new_property_sets=Nuevos conjuntos de propiedades
existing_property_sets=Conjuntos de propiedades existentes
apply_changes=Aplicar los cambios
window_already_open=La ventana ya está abierta.
skip_existing_set=Omitir los conjuntos existentes
override_existing_set=Reemplazar los conjuntos existentes
skip_existing_property=Omitir las propiedades existentes
override_existing_property=Reemplazar las propiedades existentes
GroupByNamesAndIfcEntity=Agrupar por nombres y entidad IFC
GroupByNames=Agrupar por nombres
DoNotGroup=No agrupar
check_all=Marcar todo
uncheck_all=Desmarcar todo
select=Seleccionar
select_value=Seleccionar valor
edit_separately=Editar por separado
addProperty=Añadir propiedad
delete_set=Eliminar conjunto
delete_property=Eliminar propiedad
number_allowed=Solo se permiten cifras y un punto decimal.
exit_question=¿Cerrar la ventana sin aplicar los cambios?
SetIsShared_EditAllQuestion=Varios objetos comparten este conjunto. ¿Desea cambiarlo para todos?
SetIsShared_DeleteAllQuestion=Varios objetos comparten este conjunto. ¿Desea eliminarlo para todos?
SetIsShared_AddToAllQuestion=Varios objetos comparten este conjunto. ¿Desea ampliarlo para todos?

# Summary of edit-many
summary=Resumen
node=Elemento
oldName=Antes
newName=Después
totalModyfications=Cambios en total
newObjects=Nuevos
changedObjects=Modificados
