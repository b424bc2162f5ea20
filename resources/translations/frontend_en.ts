<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="ru_RU">
<context>
    <name>AbstractBackendCommunicator</name>
    <message>
        <source>Некорректный адрес сервера (%1)</source>
        <translation>Invalid server address (%1)</translation>
    </message>
</context>
<context>
    <name>ActionInstanceEditor</name>
    <message>
        <source>Нет действий</source>
        <translation>No actions</translation>
    </message>
    <message>
        <source>Действие</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Удалить действие</source>
        <translation>Delete action</translation>
    </message>
    <message>
        <source>Зоны действия</source>
        <translation>Zones of the action</translation>
    </message>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
</context>
<context>
    <name>ActionsListModel</name>
    <message>
        <source>Новое действие</source>
        <translation>New action</translation>
    </message>
    <message>
        <source>Копия</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>AppBar</name>
    <message>
        <source>Ещё</source>
        <translation>More</translation>
    </message>
</context>
<context>
    <name>BeaconTile</name>
    <message>
        <source>Активен: %1 %2</source>
        <translation>Active: %1 %2</translation>
    </message>
    <message>
        <source>Неактивен: %1 %2</source>
        <translation>Inactive: %1 %2</translation>
    </message>
    <message>
        <source>Название: %1</source>
        <translation>Name: %1</translation>
    </message>
</context>
<context>
    <name>BrightnessControl</name>
    <message>
        <source>Авто режим</source>
        <translation>Automatic mode</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Яркость %1%</source>
        <translation>Brightness %1%</translation>
    </message>
</context>
<context>
    <name>ButtonEditScreen</name>
    <message>
        <source>Название кнопки</source>
        <translation>Button name</translation>
    </message>
    <message>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Залипающая кнопка</source>
        <translation>Toggle button</translation>
    </message>
    <message>
        <source>Остаётся нажатой до следующего нажатия</source>
        <translation>Stays pressed until the next press</translation>
    </message>
    <message>
        <source>Цвет нажатой кнопки</source>
        <translation>Colour when pressed</translation>
    </message>
    <message>
        <source>Цвет отжатой кнопки</source>
        <translation>Colour when released</translation>
    </message>
    <message>
        <source>Действия по кнопке</source>
        <translation>Actions of the button</translation>
    </message>
</context>
<context>
    <name>ButtonTile</name>
    <message>
        <source>Кнопка без названия</source>
        <translation>Button without a name</translation>
    </message>
    <message>
        <source>Нажата</source>
        <translation>Pressed</translation>
    </message>
    <message>
        <source>Отжата</source>
        <translation>Released</translation>
    </message>
</context>
<context>
    <name>ButtonsListModel</name>
    <message>
        <source>Кнопка</source>
        <translation>Button</translation>
    </message>
</context>
<context>
    <name>ButtonsListView</name>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Кнопки</source>
        <translation>Buttons</translation>
    </message>
    <message>
        <source>Залипающая кнопка</source>
        <translation>Toggle button</translation>
    </message>
    <message>
        <source>Редактировать...</source>
        <translation>Edit...</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Редактирование кнопки</source>
        <translation>Edit button</translation>
    </message>
</context>
<context>
    <name>ClientInterfaceSettings</name>
    <message>
        <source>Разрешить редактирование соединений</source>
        <translation>Allow editing of connections</translation>
    </message>
    <message>
        <source>Скрыть кнопку выхода в основном интерфейсе</source>
        <translation>Hide the exit button of the main interface</translation>
    </message>
    <message>
        <source>Административный выход</source>
        <translation>Administrative exit</translation>
    </message>
</context>
<context>
    <name>ClientSettingsScreen</name>
    <message>
        <source>Интерфейс</source>
        <translation>Interface</translation>
    </message>
    <message>
        <source>Язык</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Сохранено</source>
        <translation>Saved</translation>
    </message>
    <message>
        <source>Обновить</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Настройки недоступны</source>
        <translation>Settings are not available</translation>
    </message>
</context>
<context>
    <name>ColorPicker</name>
    <message>
        <source>Красный</source>
        <translation>Red</translation>
    </message>
    <message>
        <source>Розовый</source>
        <translation>Pink</translation>
    </message>
    <message>
        <source>Фиолетовый</source>
        <translation>Purple</translation>
    </message>
    <message>
        <source>Тёмно-фиолетовый</source>
        <translation>Deep purple</translation>
    </message>
    <message>
        <source>Индиго</source>
        <translation>Indigo</translation>
    </message>
    <message>
        <source>Синий</source>
        <translation>Blue</translation>
    </message>
    <message>
        <source>Голубой</source>
        <translation>Light blue</translation>
    </message>
    <message>
        <source>Бирюзовый</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Сине-зелёный</source>
        <translation>Teal</translation>
    </message>
    <message>
        <source>Зелёный</source>
        <translation>Green</translation>
    </message>
    <message>
        <source>Светло-зелёный</source>
        <translation>Light green</translation>
    </message>
    <message>
        <source>Лаймовый</source>
        <translation>Lime</translation>
    </message>
    <message>
        <source>Жёлтый</source>
        <translation>Yellow</translation>
    </message>
    <message>
        <source>Янтарный</source>
        <translation>Amber</translation>
    </message>
    <message>
        <source>Оранжевый</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Тёмно-оранжевый</source>
        <translation>Deep orange</translation>
    </message>
    <message>
        <source>Коричневый</source>
        <translation>Brown</translation>
    </message>
    <message>
        <source>Серый</source>
        <translation>Grey</translation>
    </message>
    <message>
        <source>Серо-синий</source>
        <translation>Blue grey</translation>
    </message>
    <message>
        <source>Оттенки</source>
        <translation>Shades</translation>
    </message>
    <message>
        <source>Цвета</source>
        <translation>Colours</translation>
    </message>
</context>
<context>
    <name>ConnectionDialog</name>
    <message>
        <source>Не удалось сохранить. Возможно, такое подключение уже есть.</source>
        <translation>It could not be saved. There may be such a connection already.</translation>
    </message>
</context>
<context>
    <name>ConnectionDisplayButton</name>
    <message>
        <source>Подключение...</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>Отключен</source>
        <translation>Disconnected</translation>
    </message>
    <message>
        <source>Данные не обновляются</source>
        <translation>Data is not being updated</translation>
    </message>
</context>
<context>
    <name>ConnectionsDrawer</name>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Добавить подключение</source>
        <translation>Add connection</translation>
    </message>
    <message>
        <source>Подключения</source>
        <translation>Connections</translation>
    </message>
    <message>
        <source>Изменить или удалить</source>
        <translation>Edit or delete</translation>
    </message>
    <message>
        <source>Изменить</source>
        <translation>Edit</translation>
    </message>
</context>
<context>
    <name>ConnectionsListModel</name>
    <message>
        <source>Не удалось сохранить подключение</source>
        <translation>The connection could not be saved</translation>
    </message>
    <message>
        <source>Не удалось удалить подключение</source>
        <translation>The connection could not be deleted</translation>
    </message>
    <message>
        <source>Не удалось сохранить вид подключения</source>
        <translation>The view of the connection could not be saved</translation>
    </message>
    <message>
        <source>Не удалось открыть сохранённые подключения</source>
        <translation>The saved connections could not be opened</translation>
    </message>
    <message>
        <source>Добавленные подключения будут действовать до выхода из программы. Файл: %1. Причина: %2</source>
        <translation>Connections that you add will last until you leave the program. File: %1. Reason: %2</translation>
    </message>
    <message>
        <source>Файл: %1. Причина: %2</source>
        <translation>File: %1. Reason: %2</translation>
    </message>
</context>
<context>
    <name>ControlSlidersPage</name>
    <message>
        <source>Управление</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Панель управления</source>
        <translation>Control panel</translation>
    </message>
    <message>
        <source>Объекты</source>
        <translation>Sites</translation>
    </message>
</context>
<context>
    <name>DatePicker</name>
    <message>
        <source>Нет такой даты</source>
        <translation>No such date</translation>
    </message>
    <message>
        <source>Открыть календарь</source>
        <translation>Open the calendar</translation>
    </message>
</context>
<context>
    <name>DatePickerCalendarDialog</name>
    <message>
        <source>Предыдущий год</source>
        <translation>Previous year</translation>
    </message>
    <message>
        <source>Следующий год</source>
        <translation>Next year</translation>
    </message>
    <message>
        <source>Предыдущий месяц</source>
        <translation>Previous month</translation>
    </message>
    <message>
        <source>Следующий месяц</source>
        <translation>Next month</translation>
    </message>
</context>
<context>
    <name>DebugPage</name>
    <message>
        <source>Модель данных</source>
        <translation>Data model</translation>
    </message>
</context>
<context>
    <name>DefaultActions</name>
    <message>
        <source>Датчик освещенности</source>
        <translation>Light sensor</translation>
    </message>
    <message>
        <source>Действие, если меньше</source>
        <translation>Action when less</translation>
    </message>
    <message>
        <source>Действие, если равно</source>
        <translation>Action when equal</translation>
    </message>
    <message>
        <source>Действие, если больше</source>
        <translation>Action when greater</translation>
    </message>
    <message>
        <source>Целевая освещенность, лк</source>
        <translation>Target illuminance, lx</translation>
    </message>
    <message>
        <source>Нижняя граница мощности, %</source>
        <translation>Lower limit of the power, %</translation>
    </message>
    <message>
        <source>Верхняя граница мощности, %</source>
        <translation>Upper limit of the power, %</translation>
    </message>
    <message>
        <source>Ошибка регулирования, лк</source>
        <translation>Control error, lx</translation>
    </message>
    <message>
        <source>Мощность, %</source>
        <translation>Power, %</translation>
    </message>
    <message>
        <source>Мощность 100%, если освещенность меньше</source>
        <translation>Power 100% when the illuminance is below</translation>
    </message>
    <message>
        <source>Мощность 0%, если освещенность больше</source>
        <translation>Power 0% when the illuminance is above</translation>
    </message>
    <message>
        <source>Датчик контакта</source>
        <translation>Contact sensor</translation>
    </message>
    <message>
        <source>Действие при замыкании</source>
        <translation>Action on closing</translation>
    </message>
    <message>
        <source>Действие при размыкании</source>
        <translation>Action on opening</translation>
    </message>
    <message>
        <source>Свойство</source>
        <translation>Property</translation>
    </message>
    <message>
        <source>Константа</source>
        <translation>Constant</translation>
    </message>
    <message>
        <source>Первое свойство</source>
        <translation>First property</translation>
    </message>
    <message>
        <source>Второе свойство</source>
        <translation>Second property</translation>
    </message>
    <message>
        <source>Действие</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Задержка, с</source>
        <translation>Delay, s</translation>
    </message>
</context>
<context>
    <name>DesktopPage</name>
    <message>
        <source>Объект пуст</source>
        <translation>The site is empty</translation>
    </message>
    <message>
        <source>Не создано ни одного объекта</source>
        <translation>No site has been created</translation>
    </message>
    <message>
        <source>Объекты</source>
        <translation>Sites</translation>
    </message>
    <message>
        <source>Нет подключений к серверу</source>
        <translation>No connections to a server</translation>
    </message>
    <message>
        <source>Создать</source>
        <translation>Create</translation>
    </message>
    <message>
        <source>Рабочий стол</source>
        <translation>Desktop</translation>
    </message>
    <message>
        <source>Режим редактирования</source>
        <translation>Edit mode</translation>
    </message>
    <message>
        <source>Редактировать...</source>
        <translation>Edit...</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Панель редактирования</source>
        <translation>Edit panel</translation>
    </message>
    <message>
        <source>Масштаб -10%</source>
        <translation>Zoom -10%</translation>
    </message>
    <message>
        <source>Масштаб 100%</source>
        <translation>Zoom 100%</translation>
    </message>
    <message>
        <source>Масштаб +10%</source>
        <translation>Zoom +10%</translation>
    </message>
    <message>
        <source>Редактировать</source>
        <translation>Edit</translation>
    </message>
</context>
<context>
    <name>DesktopSidebar</name>
    <message>
        <source>Системные сообщения</source>
        <translation>System messages</translation>
    </message>
    <message>
        <source>Смена пользователя</source>
        <translation>Change user</translation>
    </message>
    <message>
        <source>Язык интерфейса</source>
        <translation>Interface language</translation>
    </message>
    <message>
        <source>Выход</source>
        <translation>Exit</translation>
    </message>
</context>
<context>
    <name>DeviceAddDialog</name>
    <message>
        <source>Добавление устройства</source>
        <translation>Add device</translation>
    </message>
</context>
<context>
    <name>DeviceAddScreen</name>
    <message>
        <source>Адрес устройства</source>
        <translation>Device address</translation>
    </message>
    <message>
        <source>Тип устройства</source>
        <translation>Device type</translation>
    </message>
    <message>
        <source>Радио передатчик</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>Адреса устройств от 1 до 65535, через запятую или диапазоном: 1-3, 7</source>
        <translation>Device addresses from 1 to 65535, separated by commas or as a range: 1-3, 7</translation>
    </message>
</context>
<context>
    <name>DeviceDelegateTile</name>
    <message>
        <source>Нет передатчика</source>
        <translation>No radio</translation>
    </message>
    <message>
        <source>Удалить %1</source>
        <translation>Delete %1</translation>
    </message>
</context>
<context>
    <name>DeviceEditDialog</name>
    <message>
        <source>Редактирование устройства</source>
        <translation>Edit device</translation>
    </message>
    <message>
        <source>Адрес устройства</source>
        <translation>Device address</translation>
    </message>
    <message>
        <source>Радио передатчик</source>
        <translation>Radio</translation>
    </message>
</context>
<context>
    <name>DeviceValues</name>
    <message>
        <source>с</source>
        <translation>s</translation>
    </message>
    <message>
        <source>мин</source>
        <translation>min</translation>
    </message>
    <message>
        <source>ч</source>
        <translation>h</translation>
    </message>
    <message>
        <source>д</source>
        <translation>d</translation>
    </message>
    <message>
        <source>Не отвечает: &gt;%1 %2</source>
        <translation>No answer: &gt;%1 %2</translation>
    </message>
    <message>
        <source>%1 с</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>DevicesListModel</name>
    <message>
        <source>Network device-%1</source>
        <translation>Network device-%1</translation>
    </message>
    <message>
        <source>Ошибка</source>
        <translation>Error</translation>
    </message>
</context>
<context>
    <name>EditorView</name>
    <message>
        <source>Список</source>
        <translation>List</translation>
    </message>
    <message>
        <source>Назад</source>
        <translation>Back</translation>
    </message>
</context>
<context>
    <name>ElectricMeterTile</name>
    <message>
        <source>N/A</source>
        <translation>N/A</translation>
    </message>
    <message>
        <source>%1 Вт</source>
        <translation>%1 W</translation>
    </message>
    <message>
        <source>Соединение</source>
        <translation>Connecting</translation>
    </message>
    <message>
        <source>Получение U</source>
        <translation>Reading U</translation>
    </message>
    <message>
        <source>Получение I</source>
        <translation>Reading I</translation>
    </message>
    <message>
        <source>Получение P</source>
        <translation>Reading P</translation>
    </message>
    <message>
        <source>Получение cos</source>
        <translation>Reading cos</translation>
    </message>
    <message>
        <source>Получение E</source>
        <translation>Reading E</translation>
    </message>
    <message>
        <source>Ожидание</source>
        <translation>Waiting</translation>
    </message>
    <message>
        <source>%1 кВт-ч</source>
        <translation>%1 kWh</translation>
    </message>
    <message>
        <source>V, В</source>
        <translation>V, V</translation>
    </message>
    <message>
        <source>I, А</source>
        <translation>I, A</translation>
    </message>
    <message>
        <source>P, кВт</source>
        <translation>P, kW</translation>
    </message>
    <message>
        <source>cosϕ</source>
        <translation>cosϕ</translation>
    </message>
</context>
<context>
    <name>ErrorPopup</name>
    <message>
        <source>Ок</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>HelpTipButton</name>
    <message>
        <source>Подсказка</source>
        <translation>Help</translation>
    </message>
</context>
<context>
    <name>ImageItemEdit</name>
    <message>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Поверх зон</source>
        <translation>Above zones</translation>
    </message>
    <message>
        <source>Видимость</source>
        <translation>Opacity</translation>
    </message>
</context>
<context>
    <name>ImageItemTile</name>
    <message>
        <source>Изображение без названия</source>
        <translation>Picture without a name</translation>
    </message>
    <message>
        <source>Не сохранять пропорции</source>
        <translation>Do not keep the proportions</translation>
    </message>
    <message>
        <source>Сохранять пропорции</source>
        <translation>Keep the proportions</translation>
    </message>
    <message>
        <source>Разрешить изменение</source>
        <translation>Allow changes</translation>
    </message>
    <message>
        <source>Закрепить изображение</source>
        <translation>Lock the picture</translation>
    </message>
</context>
<context>
    <name>IndicatorEdit</name>
    <message>
        <source>Нет иконки</source>
        <translation>No icon</translation>
    </message>
    <message>
        <source>Тип отображения</source>
        <translation>Display type</translation>
    </message>
    <message>
        <source>Текст</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Значение</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Описание</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Описание индикатора</source>
        <translation>Indicator description</translation>
    </message>
    <message>
        <source>Горзонтальное выравнивание</source>
        <translation>Horizontal alignment</translation>
    </message>
    <message>
        <source>По левому краю</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>По правому краю</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>По центру</source>
        <translation>Centre</translation>
    </message>
    <message>
        <source>По ширине</source>
        <translation>Justified</translation>
    </message>
    <message>
        <source>Отображать устройство</source>
        <translation>Device to show</translation>
    </message>
    <message>
        <source>Отображать параметр</source>
        <translation>Parameter to show</translation>
    </message>
    <message>
        <source>Текущее значение = %1</source>
        <translation>Current value = %1</translation>
    </message>
    <message>
        <source>Цвет текста</source>
        <translation>Text colour</translation>
    </message>
    <message>
        <source>Иконка</source>
        <translation>Icon</translation>
    </message>
    <message>
        <source>Цвет иконки</source>
        <translation>Icon colour</translation>
    </message>
</context>
<context>
    <name>IndicatorTile</name>
    <message>
        <source>Индикатор без текста</source>
        <translation>Indicator without a text</translation>
    </message>
</context>
<context>
    <name>IndicatorsListModel</name>
    <message>
        <source>Индикатор</source>
        <translation>Indicator</translation>
    </message>
</context>
<context>
    <name>IntervalSelector</name>
    <message>
        <source>Минута</source>
        <comment>1</comment>
        <translation>Minute</translation>
    </message>
    <message>
        <source>Час</source>
        <comment>1</comment>
        <translation>Hour</translation>
    </message>
    <message>
        <source>День</source>
        <comment>1</comment>
        <translation>Day</translation>
    </message>
    <message>
        <source>Минута</source>
        <comment>21</comment>
        <translation>Minutes</translation>
    </message>
    <message>
        <source>Час</source>
        <comment>21</comment>
        <translation>Hours</translation>
    </message>
    <message>
        <source>День</source>
        <comment>21</comment>
        <translation>Days</translation>
    </message>
    <message>
        <source>Минуты</source>
        <translation>Minutes</translation>
    </message>
    <message>
        <source>Часа</source>
        <translation>Hours</translation>
    </message>
    <message>
        <source>Дня</source>
        <translation>Days</translation>
    </message>
    <message>
        <source>Минут</source>
        <translation>Minutes</translation>
    </message>
    <message>
        <source>Часов</source>
        <translation>Hours</translation>
    </message>
    <message>
        <source>Дней</source>
        <translation>Days</translation>
    </message>
</context>
<context>
    <name>JsonBackendCommunicator</name>
    <message>
        <source>Некорректный адрес сервера (%1)</source>
        <translation>Invalid server address (%1)</translation>
    </message>
    <message>
        <source>Внимание! Версия клиента (%1) новее, чем версия сервера (%2). Для продолжения работы, воспользуйтесь более старой версией программы или обновите прошивку сервера.</source>
        <translation>Attention! The client version (%1) is newer than the server version (%2). To go on, use an older version of the program or update the server firmware.</translation>
    </message>
    <message>
        <source>Внимание! Версия клиента (%1) новее, чем версия сервера. Для продолжения работы, воспользуйтесь более старой версией программы или обновите прошивку сервера.</source>
        <translation>Attention! The client version (%1) is newer than the server version. To go on, use an older version of the program or update the server firmware.</translation>
    </message>
    <message>
        <source>Несовместимая версия сервера</source>
        <translation>Incompatible server version</translation>
    </message>
    <message>
        <source>Файл резервной копии поврежден</source>
        <translation>The backup file is damaged</translation>
    </message>
    <message>
        <source>Не удалось загрузить изображение</source>
        <translation>The picture could not be loaded</translation>
    </message>
    <message>
        <source>Не удалось загрузить 3D объект</source>
        <translation>The 3D object could not be loaded</translation>
    </message>
</context>
<context>
    <name>LampGroupTile</name>
    <message>
        <source>Группа %1</source>
        <translation>Group %1</translation>
    </message>
    <message>
        <source>Адреса: %1</source>
        <translation>Addresses: %1</translation>
    </message>
</context>
<context>
    <name>LanguageSelector</name>
    <message>
        <source>Язык клиента</source>
        <translation>Client language</translation>
    </message>
    <message>
        <source>Не влияет на язык сервера</source>
        <translation>Does not change the server&apos;s language</translation>
    </message>
    <message>
        <source>Доступные раскладки экранной клавиатуры</source>
        <translation>Layouts of the on-screen keyboard</translation>
    </message>
</context>
<context>
    <name>LeftSidebar</name>
    <message>
        <source>Выбор языка</source>
        <translation>Choice of language</translation>
    </message>
    <message>
        <source>Смена пользователя</source>
        <translation>Change user</translation>
    </message>
    <message>
        <source>Статус подключения</source>
        <translation>Connection status</translation>
    </message>
    <message>
        <source>Рабочий стол</source>
        <translation>Desktop</translation>
    </message>
    <message>
        <source>Настройки</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Таблица управления</source>
        <translation>Control table</translation>
    </message>
</context>
<context>
    <name>LightSensorTile</name>
    <message>
        <source>%1 лк</source>
        <translation>%1 lx</translation>
    </message>
    <message>
        <source>Множитель нормализации: %1</source>
        <translation>Normalisation factor: %1</translation>
    </message>
    <message>
        <source>Интервал опроса: %1</source>
        <translation>Polling interval: %1</translation>
    </message>
</context>
<context>
    <name>LoadingPage</name>
    <message>
        <source>Загрузка...</source>
        <translation>Loading...</translation>
    </message>
</context>
<context>
    <name>LoadingScreen</name>
    <message>
        <source>Сервер не отвечает больше %1 %2</source>
        <translation>The server has not answered for more than %1 %2</translation>
    </message>
    <message>
        <source>минут</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>секунд</source>
        <translation>seconds</translation>
    </message>
    <message>
        <source>Сервер отключен</source>
        <translation>The server is disconnected</translation>
    </message>
    <message>
        <source>Подключение...</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>Переподключиться</source>
        <translation>Reconnect</translation>
    </message>
    <message>
        <source>Отключиться</source>
        <translation>Disconnect</translation>
    </message>
    <message>
        <source>Не создано ни одного подключения к серверу</source>
        <translation>No connection to a server has been created</translation>
    </message>
    <message>
        <source>Создать подключение</source>
        <translation>Create connection</translation>
    </message>
</context>
<context>
    <name>MaterialMenuField</name>
    <message>
        <source>Очистить</source>
        <translation>Clear</translation>
    </message>
</context>
<context>
    <name>MaterialTabButton</name>
    <message>
        <source>Убрать вкладку %1</source>
        <translation>Remove tab %1</translation>
    </message>
</context>
<context>
    <name>MaterialTextField</name>
    <message>
        <source>Скрыть пароль</source>
        <translation>Hide password</translation>
    </message>
    <message>
        <source>Показать пароль</source>
        <translation>Show password</translation>
    </message>
</context>
<context>
    <name>MenuPopup</name>
    <message>
        <source>Ничего не найдено</source>
        <translation>Nothing found</translation>
    </message>
    <message>
        <source>Нет вариантов</source>
        <translation>No options</translation>
    </message>
</context>
<context>
    <name>MobileSidebar</name>
    <message>
        <source>Подключения</source>
        <translation>Connections</translation>
    </message>
    <message>
        <source>Отключен</source>
        <translation>Disconnected</translation>
    </message>
    <message>
        <source>Данные не обновляются</source>
        <translation>Data is not updated</translation>
    </message>
    <message>
        <source>Системные сообщения</source>
        <translation>System messages</translation>
    </message>
    <message>
        <source>Язык интерфейса</source>
        <translation>Interface language</translation>
    </message>
    <message>
        <source>Выход</source>
        <translation>Exit</translation>
    </message>
</context>
<context>
    <name>Model::ShopPart</name>
    <message>
        <source>Объект</source>
        <translation>Site</translation>
    </message>
</context>
<context>
    <name>ObjectsListView</name>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Объекты</source>
        <translation>Sites</translation>
    </message>
    <message>
        <source>Переименовать...</source>
        <translation>Rename...</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Удалить объект &apos;%1&apos;?</source>
        <translation>Delete site &apos;%1&apos;?</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Свойства объекта</source>
        <translation>Site properties</translation>
    </message>
    <message>
        <source>Название объекта</source>
        <translation>Site name</translation>
    </message>
</context>
<context>
    <name>OndiraBrightnessSlider</name>
    <message>
        <source>Яркость</source>
        <translation>Brightness</translation>
    </message>
</context>
<context>
    <name>OndiraDialog</name>
    <message>
        <source>Ок</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>OndiraSidebarActions</name>
    <message>
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Меню</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Меню навигации</source>
        <translation>Navigation menu</translation>
    </message>
</context>
<context>
    <name>PlaceholderControl</name>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
</context>
<context>
    <name>QmlFileDialog</name>
    <message>
        <source>б</source>
        <translation>B</translation>
    </message>
    <message>
        <source>Кб</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>Мб</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>Гб</source>
        <translation>GB</translation>
    </message>
    <message>
        <source>Тб</source>
        <translation>TB</translation>
    </message>
    <message>
        <source>Пб</source>
        <translation>PB</translation>
    </message>
    <message>
        <source>Выбор файла</source>
        <translation>Choose a file</translation>
    </message>
    <message>
        <source>Открыть</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Диски</source>
        <translation>Drives</translation>
    </message>
    <message>
        <source>Порядок</source>
        <translation>Order</translation>
    </message>
    <message>
        <source>По имени</source>
        <translation>By name</translation>
    </message>
    <message>
        <source>По времени изменения</source>
        <translation>By time of change</translation>
    </message>
    <message>
        <source>По размеру</source>
        <translation>By size</translation>
    </message>
    <message>
        <source>По типу</source>
        <translation>By type</translation>
    </message>
    <message>
        <source>В обратном порядке</source>
        <translation>In reverse order</translation>
    </message>
    <message>
        <source>На уровень выше</source>
        <translation>One level up</translation>
    </message>
    <message>
        <source>Файлы</source>
        <translation>Files</translation>
    </message>
    <message>
        <source>Здесь нет подходящих файлов</source>
        <translation>There are no matching files here</translation>
    </message>
</context>
<context>
    <name>QuickScheduleDialog</name>
    <message>
        <source>Установка расписания</source>
        <translation>Set schedule</translation>
    </message>
    <message>
        <source>Установить</source>
        <translation>Set</translation>
    </message>
    <message>
        <source>Разные расписания</source>
        <translation>Different schedules</translation>
    </message>
    <message>
        <source>Нет расписания</source>
        <translation>No schedule</translation>
    </message>
    <message>
        <source>Расписание для установки</source>
        <translation>Schedule to set</translation>
    </message>
    <message>
        <source>Выбранные зоны</source>
        <translation>Chosen zones</translation>
    </message>
</context>
<context>
    <name>RadioDevicesListModel</name>
    <message>
        <source>MRF: %2 Ch: %3</source>
        <translation>MRF: %2 Ch: %3</translation>
    </message>
    <message>
        <source>LoRa %1: %2 F: %3 SF: %4</source>
        <translation>LoRa %1: %2 F: %3 SF: %4</translation>
    </message>
    <message>
        <source>RS485 %1 (%2): %3 SPD: %4</source>
        <translation>RS485 %1 (%2): %3 SPD: %4</translation>
    </message>
    <message>
        <source>Выкл</source>
        <translation>Off</translation>
    </message>
</context>
<context>
    <name>RenameDialog</name>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
</context>
<context>
    <name>ScaleSlider</name>
    <message>
        <source>Масштаб -10%</source>
        <translation>Zoom out 10%</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Масштаб 100%</source>
        <translation>Zoom 100%</translation>
    </message>
    <message>
        <source>Масштаб +10%</source>
        <translation>Zoom in 10%</translation>
    </message>
    <message>
        <source>Разрешить изменение масштаба</source>
        <translation>Unlock zoom</translation>
    </message>
    <message>
        <source>Закрепить масштаб</source>
        <translation>Lock zoom</translation>
    </message>
</context>
<context>
    <name>ScheduleDaysListModel</name>
    <message>
        <source>День</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Копия</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>SchedulePointsListModel</name>
    <message>
        <source>Отсутствующее устройство</source>
        <translation>Missing device</translation>
    </message>
    <message>
        <source>Устройство: %1</source>
        <translation>Device: %1</translation>
    </message>
    <message>
        <source>Отсутствующая кнопка</source>
        <translation>Missing button</translation>
    </message>
    <message>
        <source>Кнопка: %1</source>
        <translation>Button: %1</translation>
    </message>
    <message>
        <source>Отсутствующий индикатор</source>
        <translation>Missing indicator</translation>
    </message>
    <message>
        <source>Индикатор: %1</source>
        <translation>Indicator: %1</translation>
    </message>
    <message>
        <source>Не задано</source>
        <translation>Not set</translation>
    </message>
    <message>
        <source>Да</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Нет</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Поиск</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Очистить</source>
        <translation>Clear</translation>
    </message>
</context>
<context>
    <name>SettingsPage</name>
    <message>
        <source>Настройки</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Клиент</source>
        <translation>Client</translation>
    </message>
</context>
<context>
    <name>ShopAddMenu</name>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Добавить зону</source>
        <translation>Add zone</translation>
    </message>
    <message>
        <source>Добавить кнопку</source>
        <translation>Add button</translation>
    </message>
    <message>
        <source>Добавить индикатор</source>
        <translation>Add indicator</translation>
    </message>
    <message>
        <source>Добавить изображение</source>
        <translation>Add picture</translation>
    </message>
</context>
<context>
    <name>ShopControls</name>
    <message>
        <source>Режим редактирования</source>
        <translation>Edit mode</translation>
    </message>
    <message>
        <source>Объектов, зон, устройств</source>
        <translation>Of sites, zones, devices</translation>
    </message>
    <message>
        <source>Редактировать</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Установить расписание</source>
        <translation>Set schedule</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Объекты</source>
        <translation>Sites</translation>
    </message>
    <message>
        <source>Зоны</source>
        <translation>Zones</translation>
    </message>
    <message>
        <source>Кнопки</source>
        <translation>Buttons</translation>
    </message>
    <message>
        <source>Объект</source>
        <translation>Site</translation>
    </message>
</context>
<context>
    <name>ShopEditDialog</name>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>ShopListRow</name>
    <message>
        <source>Действия: %1</source>
        <translation>Actions: %1</translation>
    </message>
    <message>
        <source>Без названия</source>
        <translation>Without a name</translation>
    </message>
</context>
<context>
    <name>ShopScreen</name>
    <message>
        <source>Удалить выделенные объекты?</source>
        <translation>Delete the selected objects?</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Свойства изображения</source>
        <translation>Picture properties</translation>
    </message>
    <message>
        <source>Редактирование индикатора</source>
        <translation>Edit indicator</translation>
    </message>
    <message>
        <source>Редактирование кнопки</source>
        <translation>Edit button</translation>
    </message>
</context>
<context>
    <name>SpinboxField</name>
    <message>
        <source>Числовое значение</source>
        <translation>Numeric value</translation>
    </message>
    <message>
        <source>Значение</source>
        <translation>Value</translation>
    </message>
    <message>
        <source> от %1</source>
        <translation> from %1</translation>
    </message>
    <message>
        <source> до %1</source>
        <translation> to %1</translation>
    </message>
</context>
<context>
    <name>StandardBlueprints</name>
    <message>
        <source>Установить мощность</source>
        <translation>Set the power</translation>
    </message>
    <message>
        <source>Мощность</source>
        <translation>Power</translation>
    </message>
    <message>
        <source>Перевести в ручной режим</source>
        <translation>Switch to manual mode</translation>
    </message>
    <message>
        <source>Перевести в автоматический режим</source>
        <translation>Switch to automatic mode</translation>
    </message>
    <message>
        <source>Мощность по внутреннему датчику освещенности</source>
        <translation>Power by an indoor light sensor</translation>
    </message>
    <message>
        <source>Датчик освещенности</source>
        <translation>Light sensor</translation>
    </message>
    <message>
        <source>Ошибка регулирования, лк</source>
        <translation>Control error, lx</translation>
    </message>
    <message>
        <source>Целевая освещенность, лк</source>
        <translation>Target illuminance, lx</translation>
    </message>
    <message>
        <source>Нижняя граница мощности, %</source>
        <translation>Lower limit of the power, %</translation>
    </message>
    <message>
        <source>Верхняя граница мощности, %</source>
        <translation>Upper limit of the power, %</translation>
    </message>
    <message>
        <source>Мощность по внешнему датчику освещенности</source>
        <translation>Power by an outdoor light sensor</translation>
    </message>
    <message>
        <source>Мощность 100%, если освещенность меньше</source>
        <translation>Power 100% when the illuminance is below</translation>
    </message>
    <message>
        <source>Мощность 0%, если освещенность больше</source>
        <translation>Power 0% when the illuminance is above</translation>
    </message>
    <message>
        <source>Отладка: все узлы</source>
        <translation>Debugging: all nodes</translation>
    </message>
</context>
<context>
    <name>TabSettingsWindow</name>
    <message>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Адрес сервера</source>
        <translation>Server address</translation>
    </message>
    <message>
        <source>Логин</source>
        <translation>Login</translation>
    </message>
    <message>
        <source>Пароль</source>
        <translation>Password</translation>
    </message>
</context>
<context>
    <name>TemperatureSensorTile</name>
    <message>
        <source>Интервал опроса: %1</source>
        <translation>Polling interval: %1</translation>
    </message>
</context>
<context>
    <name>TileAnswer</name>
    <message>
        <source>Получен ответ</source>
        <translation>Answer received</translation>
    </message>
</context>
<context>
    <name>TileFieldBool</name>
    <message>
        <source>Нет</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Да</source>
        <translation>Yes</translation>
    </message>
</context>
<context>
    <name>TileFieldEnum</name>
    <message>
        <source>Изменить варианты</source>
        <translation>Change the options</translation>
    </message>
</context>
<context>
    <name>TileFieldList</name>
    <message>
        <source>Элементов</source>
        <translation>Elements</translation>
    </message>
    <message>
        <source> от %1</source>
        <translation> from %1</translation>
    </message>
    <message>
        <source> до %1</source>
        <translation> to %1</translation>
    </message>
</context>
<context>
    <name>TileFieldListEditDialog</name>
    <message>
        <source>Редактирование списка</source>
        <translation>Edit list</translation>
    </message>
    <message>
        <source>Тип списка</source>
        <translation>List type</translation>
    </message>
    <message>
        <source>Целое число</source>
        <translation>Integer</translation>
    </message>
    <message>
        <source>Дробное число</source>
        <translation>Fraction</translation>
    </message>
    <message>
        <source>Да или нет</source>
        <translation>Yes or no</translation>
    </message>
    <message>
        <source>Строка</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Список пуст</source>
        <translation>The list is empty</translation>
    </message>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
</context>
<context>
    <name>TilePowerBar</name>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>TimePicker</name>
    <message>
        <source>Нет такого времени</source>
        <translation>No such time</translation>
    </message>
    <message>
        <source>Открыть циферблат</source>
        <translation>Open the dial</translation>
    </message>
</context>
<context>
    <name>TimePickerDialog</name>
    <message>
        <source>Часы</source>
        <translation>Hours</translation>
    </message>
    <message>
        <source>Минуты</source>
        <translation>Minutes</translation>
    </message>
    <message>
        <source>Секунды</source>
        <translation>Seconds</translation>
    </message>
</context>
<context>
    <name>UserForm</name>
    <message>
        <source>Логин</source>
        <translation>Login</translation>
    </message>
    <message>
        <source>Пароль</source>
        <translation>Password</translation>
    </message>
</context>
<context>
    <name>UsersListModel</name>
    <message>
        <source>Администратор</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>Пользователь</source>
        <translation>User</translation>
    </message>
</context>
<context>
    <name>VersionInfoDialog</name>
    <message>
        <source>Версия %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>rev. %1</source>
        <translation>rev. %1</translation>
    </message>
    <message>
        <source>Версия сервера %1.%2.%3</source>
        <translation>Server version %1.%2.%3</translation>
    </message>
    <message>
        <source>История версий</source>
        <translation>Version history</translation>
    </message>
    <message>
        <source>О лицензиях</source>
        <translation>About licences</translation>
    </message>
    <message>
        <source>Лицензия</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>Лицензии третьих сторон</source>
        <translation>Third-party licences</translation>
    </message>
</context>
<context>
    <name>ZoneControlRow</name>
    <message>
        <source>Зона без названия</source>
        <translation>Zone without a name</translation>
    </message>
    <message>
        <source>Авто режим</source>
        <translation>Auto mode</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>ZonePage</name>
    <message>
        <source>Редактирование зоны</source>
        <translation>Edit zone</translation>
    </message>
    <message>
        <source>Зоны</source>
        <translation>Zones</translation>
    </message>
    <message>
        <source>Зона без названия</source>
        <translation>Zone without a name</translation>
    </message>
</context>
<context>
    <name>ZoneScreen</name>
    <message>
        <source>Зона без названия</source>
        <translation>Zone without a name</translation>
    </message>
    <message>
        <source>Нажмите, чтобы изменить название зоны</source>
        <translation>Press to change the zone&apos;s name</translation>
    </message>
    <message>
        <source>Устройства</source>
        <translation>Devices</translation>
    </message>
    <message>
        <source>Пустая зона</source>
        <translation>Empty zone</translation>
    </message>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Изменить название зоны</source>
        <translation>Change zone name</translation>
    </message>
    <message>
        <source>Название зоны</source>
        <translation>Zone name</translation>
    </message>
</context>
<context>
    <name>ZoneTile</name>
    <message>
        <source>%1%, ручной режим</source>
        <translation>%1%, manual mode</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>(Ручной режим)</source>
        <translation>(Manual mode)</translation>
    </message>
    <message>
        <source>Зона без названия</source>
        <translation>Zone without a name</translation>
    </message>
</context>
<context>
    <name>ZonesControlList</name>
    <message>
        <source>Зоны</source>
        <translation>Zones</translation>
    </message>
    <message>
        <source>Объект пуст</source>
        <translation>The site is empty</translation>
    </message>
</context>
<context>
    <name>ZonesListView</name>
    <message>
        <source>Добавить зону</source>
        <translation>Add zone</translation>
    </message>
    <message>
        <source>Зоны</source>
        <translation>Zones</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Редактировать зону...</source>
        <translation>Edit zone...</translation>
    </message>
    <message>
        <source>Переименовать</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Удалить зону &apos;%1&apos;?</source>
        <translation>Delete zone &apos;%1&apos;?</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Переименовать зону</source>
        <translation>Rename zone</translation>
    </message>
    <message>
        <source>Название зоны</source>
        <translation>Zone name</translation>
    </message>
</context>
<context>
    <name>ZonesTableView</name>
    <message>
        <source>Выбрано: %1</source>
        <translation>Chosen: %1</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Добавление подключения</source>
        <translation>New connection</translation>
    </message>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Изменение подключения</source>
        <translation>Edit connection</translation>
    </message>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Выйти из программы?</source>
        <translation>Leave the program?</translation>
    </message>
    <message>
        <source>Выйти</source>
        <translation>Leave</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Нет доступа к данным</source>
        <translation>No access to data</translation>
    </message>
    <message>
        <source>Нет разрешения на запись и чтение хранилища данных, разрешите запись и чтение файлов для сохранения и загрузки настроек программы</source>
        <translation>There is no permission to read and write the storage. Allow reading and writing files, so that the program can keep its settings</translation>
    </message>
    <message>
        <source>Запросить разрешения</source>
        <translation>Request permissions</translation>
    </message>
</context>
</TS>
