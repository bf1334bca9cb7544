# Quillet, Polski. UTF-8; one key=text a line. Keys are the same in all languages. In a text \n is a
# line end and \\ a backslash. Lines that begin with # are comments.

# Ribbon
group.quillet=Quillet
Quillet=Quillet
btn_edit=Edytuj właściwości
btn_edit.hint=Dodawanie, zmiana i usuwanie zestawów właściwości i właściwości zaznaczonych obiektów.
add_property_set=Dodaj zestaw właściwości
edit_many=Edytuj wiele obiektów
btn_export=Eksportuj
btn_export.hint=Zapisz wczytane pliki IFC ze wszystkimi zmianami jako nowe pliki.
open_recent_created_file_button_name=Otwórz ostatni eksport
open_recent_created_file_button_description=Otwórz ostatnio wyeksportowany plik.
options=Opcje
option_ignore_enume_errors=Ignoruj nieznane wartości wyliczeń
option_erase_white_signs=Usuwaj spacje wokół nazw i wartości
lbl.merge_prop_sets=Scalaj zestawy właściwości o tej samej nazwie

# Progress
progress_bar_overall_progrss=Postęp całkowity
progress_bar_loading=Wczytywanie ...
progress_bar_deleting=Usuwanie ...
progress_bar_saving=Zapisywanie:
progress_dialog_name=Eksport
overall_progress=Postęp całkowity
current_progress=Bieżący postęp
reading_file=Odczyt:

# Selection and flows
select_one_object=Zaznacz dokładnie jeden obiekt.
no_object_selected_message=Nie zaznaczono żadnego obiektu.
fail_to_open_last_created_file_message=Nie można otworzyć ostatnio wyeksportowanego pliku.
property_already_exists_update=Właściwość o tej nazwie już istnieje. Czy ją zastąpić?
window_not_available=Okno edycji nie jest dostępne w tym systemie.
no_screen=Nie ma ekranu, na którym można pokazać okna. Uruchom program w sesji graficznej.
UnableToAddProperty=Nie można dodać właściwości.
UnableToEditProperty=Nie można zmienić właściwości.
UnableToDeleteProperty=Nie można usunąć właściwości.
UnableToAddPropertySet=Nie można dodać zestawu właściwości.
UnableToEditPropertySet=Nie można zmienić nazwy zestawu właściwości.
UnableToDeletePropertySet=Nie można usunąć zestawu właściwości.
object_not_in_file=Obiekt nie pochodzi z żadnego wczytanego pliku IFC i nie można go edytować.
type_object_not_editable=Zestawów właściwości typów nie można edytować: należą do wszystkich obiektów danego typu.
set_not_editable=Postać tego zestawu jest ustalona przez schemat IFC i nie można go edytować.
set_guid_missing=Nie podano identyfikatora GUID zestawu właściwości
property_not_editable=Edytować można tylko wartości pojedyncze i ilości.
set_name_missing=Podaj nazwę zestawu właściwości.
set_name_taken=Obiekt ma już zestaw właściwości o tej nazwie.
property_name_missing=Podaj nazwę właściwości.
property_name_taken=Zestaw ma już właściwość o tej nazwie.
value_missing=Podaj wartość. Aby usunąć wartość, usuń właściwość.
value_is_no_number=Wartość musi być liczbą z kropką przed częścią dziesiętną.
value_is_no_integer=Wartość musi być liczbą całkowitą.
value_is_no_truth_value=Wartością musi być tak lub nie.
value_is_no_logical=„{1}” nie jest wartością {2}. Oczekiwano: tak, nie lub nieznane (yes, no, unknown)
value_out_of_range=„{1}” nie jest wartością {2}. Oczekiwano: liczba {3}
value_is_no_time=„{1}” nie jest wartością {2}. Oczekiwano (ISO 8601): {3}
value_is_no_text=Wartości typu {2} nie można wprowadzić jako tekstu: „{1}”
unknown_quantity_type=Wybierz rodzaj ilości.
unknown_unit=Jednostka nie należy do układu SI. Wybierz jednostkę z listy.
unit_not_of_si=„{1}” nie jest jednostką SI. Podaj wartość w {2}.
unit_not_of_quantity=Ta jednostka nie mierzy takiej ilości. Wybierz metry kwadratowe dla powierzchni, metry dla długości, metry sześcienne dla objętości, gramy dla masy, sekundy dla czasu, z dowolnym przedrostkiem, a dla liczby sztuk żadnej.
type_without_unit={2} nie ma jednostki SI, a „{1}” jej nie mierzy.
unit_missing=Wybierz jednostkę. Aby usunąć jednostkę, usuń właściwość i dodaj ją ponownie.

# Property window
propertyWindowName=Właściwość
editPropertySet=Zmień nazwę zestawu właściwości
setLabel=Zestaw właściwości
propertySetNameMessage=Nazwa zestawu właściwości
propertyNameMessage=Nazwa właściwości
propertyData=Dane właściwości
valueLabel=Wartość
unitLabel=Jednostka
quantityTypeLabel=Rodzaj ilości
yes=Tak
no=Nie
btnOkName=OK
btnCancelName=Anuluj
btnCloseName=Zamknij

# Export
no_file_selected_message=Nie wczytano żadnego modelu.
no_active_project_caption=Eksport
no_active_project_massage=Nie ma pliku IFC do wyeksportowania.
filter_caption=Pliki IFC
files_already_exists_caption=Zastąp pliki
files_already_exists_message=Niektóre pliki już istnieją. Czy je zastąpić?
continue_question=Czy czytać dalej?
files_generated_with_warning_msg=Pliki zapisano, ale wystąpiły problemy. Czy pokazać dziennik?
error_show_log_question=Nie udało się zapisać żadnego pliku. Czy pokazać dziennik?
could_not_open_file=Nie można otworzyć pliku
could_not_open_file_extension=Nie można otwierać plików z tym rozszerzeniem:
could_not_open_file_write=Nie można zapisać pliku.
file_in_use=Plik jest otwarty w innym programie.
file_access_denied=Odmowa dostępu do pliku lub jego folderu.
file_folder_missing=Folder nie istnieje.
file_disk_full=Dysk jest pełny.
file_other_trouble=System zgłasza:
unknown_schema_identifier=Schemat nie należy do tych, które można odczytać:

# Edit-many window
new_property_sets=Nowe zestawy właściwości
existing_property_sets=Istniejące zestawy właściwości
apply_changes=Zastosuj zmiany
window_already_open=Okno jest już otwarte.
skip_existing_set=Pomiń istniejące zestawy
override_existing_set=Zastąp istniejące zestawy
skip_existing_property=Pomiń istniejące właściwości
override_existing_property=Zastąp istniejące właściwości
GroupByNamesAndIfcEntity=Grupuj według nazw i encji IFC
GroupByNames=Grupuj według nazw
DoNotGroup=Nie grupuj
check_all=Zaznacz wszystko
uncheck_all=Odznacz wszystko
select=Zaznacz
select_value=Zaznacz wartość
edit_separately=Edytuj osobno
addProperty=Dodaj właściwość
delete_set=Usuń zestaw
delete_property=Usuń właściwość
number_allowed=Dozwolone są tylko cyfry i kropka dziesiętna.
exit_question=Zamknąć okno bez zastosowania zmian?
SetIsShared_EditAllQuestion=Kilka obiektów współdzieli ten zestaw. Czy zmienić go dla wszystkich?
SetIsShared_DeleteAllQuestion=Kilka obiektów współdzieli ten zestaw. Czy usunąć go dla wszystkich?
SetIsShared_AddToAllQuestion=Kilka obiektów współdzieli ten zestaw. Czy uzupełnić go dla wszystkich?

# Summary of edit-many
summary=Podsumowanie
node=Element
oldName=Przed
newName=Po
totalModyfications=Zmiany łącznie
newObjects=Nowe
changedObjects=Zmienione
